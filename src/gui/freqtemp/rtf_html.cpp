#include "gui/freqtemp/rtf_html.h"

#include "base/failure_codes.h"

#include <QRegularExpression>
#include <QStringList>

#include <algorithm>
#include <utility>
#include <vector>

namespace tickervantage {
namespace {

class RtfReader {
public:
    [[nodiscard]] bool is_done() const { return m_is_done; }
    [[nodiscard]] QString html() const { return m_html; }

    void take(const QRegularExpressionMatch& token) {
        if (token.hasCaptured(u"brace"))
            take_brace(token.captured(u"brace") == u"{");
        else if (token.hasCaptured(u"word"))
            obey(token.captured(u"word"), token.captured(u"number"));
        else if (token.hasCaptured(u"byte"))
            add(QString(QChar(token.captured(u"byte").toUShort(nullptr, 16))));
        else if (token.captured(u"sign") == u"*") // what follows may be passed over
            m_style.is_hidden = true;
        else
            add(token.captured(u"sign") + token.captured(u"text"));
    }

private:
    // What a group has of its own.
    struct Style {
        bool bold = false;
        bool italic = false;
        QString script = {}; // "sup", "sub"; empty: neither
        bool is_hidden = false;
        int after_unicode = 1; // characters that stand in for each \u, for readers that know none
    };

    void take_brace(bool opens) {
        flush();
        if (opens) {
            m_groups.push_back(m_style);
        } else {
            m_style = m_groups.back();
            m_groups.pop_back();
            m_is_done = m_groups.empty();
        }
        m_to_skip = 0;
        if (m_is_done && !m_paragraph.isEmpty())
            end_paragraph();
    }

    void obey(const QString& word, const QString& number) {
        static const QStringList hidden{QStringLiteral("fonttbl"), QStringLiteral("colortbl"),
                                        QStringLiteral("stylesheet"), QStringLiteral("info")};
        if (word == u"u") {
            m_text += QChar(static_cast<char16_t>(number.toInt())); // signed, in 16 bits
            m_to_skip = m_style.after_unicode;
        } else if (word == u"uc") {
            m_style.after_unicode = number.toInt();
        } else if (word == u"par") {
            flush();
            end_paragraph();
        } else if (hidden.contains(word)) {
            m_style.is_hidden = true;
        } else {
            change_style(word, number != u"0");
        }
    }

    void change_style(const QString& word, bool on) {
        flush();
        if (word == u"plain")
            m_style = {.after_unicode = m_style.after_unicode};
        else if (word == u"b")
            m_style.bold = on;
        else if (word == u"i")
            m_style.italic = on;
        else if (word == u"super" || word == u"sub" || word == u"nosupersub")
            m_style.script = on && word != u"nosupersub" ? word.left(3) : QString();
    }

    void add(const QString& text) {
        const auto skipped = std::min<qsizetype>(m_to_skip, text.size());
        m_to_skip -= static_cast<int>(skipped);
        m_text += text.mid(skipped);
    }

    // To be called before the style changes.
    void flush() {
        QString text = std::exchange(m_text, {}).toHtmlEscaped();
        if (text.isEmpty() || m_style.is_hidden)
            return;
        for (const auto& tag : {QString::fromLatin1(m_style.bold ? "b" : ""),
                                QString::fromLatin1(m_style.italic ? "i" : ""), m_style.script})
            if (!tag.isEmpty())
                text = QStringLiteral("<%1>%2</%1>").arg(tag, text);
        m_paragraph += text;
    }

    void end_paragraph() {
        if (!m_style.is_hidden)
            m_html += QStringLiteral("<p style=\"margin-top:2px; margin-bottom:2px\">%1</p>")
                          .arg(std::exchange(m_paragraph, {}));
    }

    Style m_style;
    std::vector<Style> m_groups; // around the present one
    QString m_text;              // of that style, not yet in the paragraph
    QString m_paragraph;
    QString m_html;
    int m_to_skip = 0; // characters that only repeat the last \u
    bool m_is_done = false;
};

} // namespace

Result<QString> html_of_rtf(const std::string& bytes) {
    static const QRegularExpression token(
        QStringLiteral(R"((?<brace>[{}])|\\(?<word>[a-z]+)(?<number>-?\d*) ?|\\'(?<byte>[0-9A-Fa-f]{2})|)"
                       R"(\\(?<sign>[^a-z'])|(?<text>[^\\{}\r\n]+))"));
    if (!bytes.starts_with("{\\rtf"))
        return failed(FailureCode::no_rich_text);
    RtfReader reader;
    for (auto tokens = token.globalMatch(QString::fromLatin1(bytes)); tokens.hasNext() && !reader.is_done();)
        reader.take(tokens.next());
    if (!reader.is_done())
        return failed(FailureCode::ends_in_the_middle);
    return reader.html();
}

} // namespace tickervantage
