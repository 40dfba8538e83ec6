// Any bytes as a text in the Rich Text Format: what is accepted is UTF-8 that is no longer than what it came from.
#include "fuzz/require.h"
#include "studies/freqtemp/rtf_text.h"

using namespace tickervantage;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string bytes(data, data + size);
    std::vector<RtfParagraph> paragraphs;
    std::string sentence;
    if (read_rtf(bytes, paragraphs, sentence) != 0) {
        require(!sentence.empty() && paragraphs.empty());
        return 0;
    }
    std::size_t letters = 0;
    for (const auto& paragraph : paragraphs)
        for (const auto& run : paragraph) {
            require(!run.text.empty());
            for (const char byte : run.text)
                letters += (static_cast<unsigned char>(byte) & 0xC0U) == 0x80U ? 0U : 1U;
        }
    require(letters + paragraphs.size() <= size);
    return 0;
}
