// Any bytes as what mandoc printed, and as a page in Markdown: what comes of them grows no more than its links do,
// holds no overstrike, and adapting twice finds nothing left to take away.
#include "fuzz/require.h"
#include "help/help_pages.h"
#include "help/manual_page.h"
#include "help/markdown_text.h"

FUZZED(bytes) {
    constexpr std::size_t growth_of_a_reference = 5; // a reference of 10 letters becomes a link of 45
    const std::string html = adapted_manual(bytes, *find_help_topic("chronyd"));
    require(html.size() <= bytes.size() * growth_of_a_reference);
    const std::string plain = without_overstrikes(bytes);
    require(plain.size() <= bytes.size() && plain.find('\b') == std::string::npos);
    (void)markdown_as_text(bytes, bytes.size() % 80);
    for (const auto& passage : search_page(bytes, "a", 10))
        require(!passage.empty());
}
