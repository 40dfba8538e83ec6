#include "studies/freqtemp/rtf_text.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cstdint>
#include <optional>
#include <utility>

namespace tickervantage {
namespace {

constexpr char32_t REPLACEMENT = 0xFFFD;

// What Windows code page 1252 has at 0x80 to 0x9F; 0: nothing.
constexpr std::array<char16_t, 32> CP1252{0x20AC, 0,      0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021,
                                          0x02C6, 0x2030, 0x0160, 0x2039, 0x0152, 0,      0x017D, 0,
                                          0,      0x2018, 0x2019, 0x201C, 0x201D, 0x2022, 0x2013, 0x2014,
                                          0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0,      0x017E, 0x0178};

constexpr std::array HIDDEN_DESTINATIONS{
    std::string_view("fonttbl"), std::string_view("colortbl"), std::string_view("stylesheet"),
    std::string_view("info"),    std::string_view("pict"),     std::string_view("object"),
    std::string_view("header"),  std::string_view("headerl"),  std::string_view("headerr"),
    std::string_view("headerf"), std::string_view("footer"),   std::string_view("footerl"),
    std::string_view("footerr"), std::string_view("footerf"),  std::string_view("footnote"),
    std::string_view("fldinst")};

constexpr std::array<std::pair<std::string_view, char32_t>, 11> SPECIAL_CHARACTERS{{{"tab", '\t'},
                                                                                    {"line", '\n'},
                                                                                    {"emdash", 0x2014},
                                                                                    {"endash", 0x2013},
                                                                                    {"lquote", 0x2018},
                                                                                    {"rquote", 0x2019},
                                                                                    {"ldblquote", 0x201C},
                                                                                    {"rdblquote", 0x201D},
                                                                                    {"bullet", 0x2022},
                                                                                    {"emspace", 0x2003},
                                                                                    {"enspace", 0x2002}}};

bool is_letter(char c) {
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z');
}

void append_utf8(std::string& text, char32_t code) {
    const auto add = [&text](char32_t byte) {
        text += static_cast<char>(static_cast<unsigned char>(byte));
    };
    const auto tail = [&](int shift) {
        add(0x80 | ((code >> shift) & 0x3F));
    };
    if (code < 0x80) {
        add(code);
    } else if (code < 0x800) {
        add(0xC0 | (code >> 6)), tail(0);
    } else if (code < 0x10000) {
        add(0xE0 | (code >> 12)), tail(6), tail(0);
    } else {
        add(0xF0 | (code >> 18)), tail(12), tail(6), tail(0);
    }
}

struct ControlWord {
    std::string_view name;
    std::optional<int> number;

    [[nodiscard]] bool is_on() const { return number.value_or(1) != 0; }
};

class RtfReader {
public:
    explicit RtfReader(std::string_view bytes) : m_left(bytes) {}

    [[nodiscard]] int read(std::string& sentence) {
        if (!m_left.starts_with("{\\rtf")) {
            sentence = "it is not in the Rich Text Format";
            return -1;
        }
        while (!m_left.empty() && !m_is_done) {
            if (take_next() == 0)
                continue;
            sentence = "its groups lie too deep within each other";
            return -1;
        }
        if (!m_is_done) {
            sentence = "it ends in the middle";
            return -1;
        }
        finish();
        return 0;
    }

    std::vector<RtfParagraph> paragraphs;

private:
    // What a group has of its own.
    struct Group {
        RtfStyle style;
        bool is_hidden = false;
        int after_unicode = 1; // characters that stand in for each \u, for readers that know none
    };

    [[nodiscard]] int take_next() {
        const char c = m_left.front();
        m_left.remove_prefix(1);
        switch (c) {
        case '{':
            m_groups.push_back(m_group);
            return m_groups.size() <= DEEPEST_RTF ? 0 : -1;
        case '}':
            close_group();
            break;
        case '\\':
            take_control();
            break;
        case '\r':
        case '\n':
            break;
        default:
            add_byte(static_cast<unsigned char>(c));
        }
        return 0;
    }

    void close_group() {
        m_group = m_groups.back();
        m_groups.pop_back();
        m_to_skip = 0;
        m_is_done = m_groups.empty();
    }

    void take_control() {
        if (m_left.empty())
            return;
        if (is_letter(m_left.front()))
            obey(take_word());
        else
            take_symbol();
    }

    ControlWord take_word() {
        ControlWord word;
        const auto name_end = std::ranges::find_if_not(m_left, is_letter) - m_left.begin();
        word.name = m_left.substr(0, static_cast<std::size_t>(name_end));
        m_left.remove_prefix(word.name.size());
        int number = 0;
        const auto [end, error] = std::from_chars(m_left.data(), m_left.data() + m_left.size(), number);
        if (error == std::errc())
            word.number = number;
        m_left.remove_prefix(static_cast<std::size_t>(end - m_left.data()));
        if (m_left.starts_with(' '))
            m_left.remove_prefix(1);
        return word;
    }

    void take_symbol() {
        const char symbol = m_left.front();
        m_left.remove_prefix(1);
        switch (symbol) {
        case '\'':
            take_hexadecimal();
            break;
        case '*': // the destination that follows may be passed over, and is
            m_group.is_hidden = true;
            break;
        case '~':
            add(0x00A0);
            break;
        case '_':
            add(0x2011);
            break;
        case '\r':
        case '\n':
            end_paragraph();
            break;
        case '{':
        case '}':
        case '\\':
            add(static_cast<unsigned char>(symbol));
            break;
        default:
            break;
        }
    }

    void take_hexadecimal() {
        unsigned value = 0;
        const auto digits = m_left.substr(0, 2);
        const auto [end, error] = std::from_chars(digits.data(), digits.data() + digits.size(), value, 16);
        m_left.remove_prefix(static_cast<std::size_t>(end - digits.data()));
        if (error == std::errc())
            add_byte(static_cast<unsigned char>(value));
    }

    void obey(const ControlWord& word) {
        const auto special =
            std::ranges::find(SPECIAL_CHARACTERS, word.name, &decltype(SPECIAL_CHARACTERS)::value_type::first);
        if (special != SPECIAL_CHARACTERS.end())
            add(special->second);
        else if (word.name == "par" || word.name == "row" || word.name == "sect")
            end_paragraph();
        else if (word.name == "u")
            add_unicode(word.number.value_or(0));
        else if (word.name == "uc")
            m_group.after_unicode = std::clamp(word.number.value_or(1), 0, 16);
        else if (word.name == "bin")
            m_left.remove_prefix(
                std::min(m_left.size(), static_cast<std::size_t>(std::max(0, word.number.value_or(0)))));
        else if (std::ranges::find(HIDDEN_DESTINATIONS, word.name) != HIDDEN_DESTINATIONS.end())
            m_group.is_hidden = true;
        else
            change_style(word);
    }

    void change_style(const ControlWord& word) {
        RtfStyle& style = m_group.style;
        if (word.name == "plain")
            style = {};
        else if (word.name == "b")
            style.bold = word.is_on();
        else if (word.name == "i")
            style.italic = word.is_on();
        else if (word.name == "super")
            style.script = word.is_on() ? RtfScript::superscript : RtfScript::normal;
        else if (word.name == "sub")
            style.script = word.is_on() ? RtfScript::subscript : RtfScript::normal;
        else if (word.name == "nosupersub")
            style.script = RtfScript::normal;
    }

    // The number is signed, in 16 bits; characters beyond those come as two surrogates.
    void add_unicode(int number) {
        const auto unit = static_cast<char32_t>(static_cast<std::uint16_t>(number));
        const char32_t high = std::exchange(m_high_surrogate, 0);
        m_to_skip = 0;
        if (unit < 0xD800 || unit >= 0xE000)
            add(unit);
        else if (unit < 0xDC00)
            m_high_surrogate = unit;
        else
            add(high != 0 ? 0x10000 + ((high - 0xD800) << 10) + (unit - 0xDC00) : REPLACEMENT);
        m_to_skip = m_group.after_unicode;
    }

    void add_byte(unsigned char byte) {
        const bool is_odd = byte >= 0x80 && byte < 0xA0;
        const char32_t code = is_odd ? CP1252[byte - 0x80U] : byte;
        add(code != 0 ? code : REPLACEMENT);
    }

    void add(char32_t code) {
        if (m_to_skip > 0) {
            --m_to_skip;
            return;
        }
        if (m_group.is_hidden || (code < ' ' && code != '\t' && code != '\n'))
            return;
        if (m_paragraph.empty() || m_paragraph.back().style != m_group.style)
            m_paragraph.push_back({{}, m_group.style});
        append_utf8(m_paragraph.back().text, code);
    }

    void end_paragraph() {
        if (!m_group.is_hidden)
            paragraphs.push_back(std::exchange(m_paragraph, {}));
    }

    void finish() {
        if (!m_paragraph.empty())
            end_paragraph();
    }

    std::string_view m_left;
    std::vector<Group> m_groups; // around the present one
    Group m_group;
    RtfParagraph m_paragraph;
    char32_t m_high_surrogate = 0; // waits for its other half
    int m_to_skip = 0;             // characters that only repeat the last \u
    bool m_is_done = false;
};

} // namespace

int read_rtf(std::string_view bytes, std::vector<RtfParagraph>& paragraphs, std::string& sentence) {
    if (bytes.size() > LARGEST_RTF) {
        sentence = "it is too large";
        return -1;
    }
    RtfReader reader(bytes);
    if (reader.read(sentence) != 0)
        return -1;
    paragraphs = std::move(reader.paragraphs);
    return 0;
}

} // namespace tickervantage
