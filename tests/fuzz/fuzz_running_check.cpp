// Any bytes as the command line of a chronyd, and as the kernel's tables of sockets: nothing crashes, an -x that stands
// alone as a word in front is always seen, and a socket that was found has a number.
#include "chrony/reports/running_check.h"
#include "fuzz/require.h"

FUZZED(text) {
    (void)forbids_adjustment(text);
    require(forbids_adjustment("chronyd -x " + text));
    for (const auto& sockets : {sockets_at(text, "0100007F:0143"), sockets_named(text, "/run/chrony/chronyd.sock")})
        for (const CommandSocket& socket : sockets)
            require(!socket.inode.empty());
}
