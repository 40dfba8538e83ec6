// Any bytes as chronyd's answer: the message is a piece of it between the two marks, and no error has no line.
#include "chrony/configuration/config_error.h"
#include "fuzz/require.h"

FUZZED(answer) {
    const ConfigError error = parse_check_answer(answer);
    require(error.m_isok == error.m_msg.empty());
    require(error.m_line >= 0);
    if (error.m_isok) {
        require(error.m_line == 0);
        require(answer.starts_with("Fatal error : ") || answer.find("Fatal error : ") == std::string::npos ||
                answer.find(" in file", answer.find("Fatal error : ")) == std::string::npos);
        return;
    }
    require(error.m_msg.starts_with("Fatal error : ") || error.m_msg == "Fatal error :");
    require(error.m_msg.find(" in file") == std::string::npos);
    require(answer.find(error.m_msg + " in file") != std::string::npos);
}
