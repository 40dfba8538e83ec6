#include "qt/pdf_document.h"

#include <QBuffer>
#include <QDateTime>
#include <QHashFunctions>
#include <QMarginsF>
#include <QPageLayout>
#include <QPageSize>
#include <QPdfWriter>
#include <QTextDocument>

namespace tickervantage {
namespace {

// Both have the same length, so that the places that the document's index names stay where they are.
void set_creation_date(QByteArray& pdf, std::int64_t moment) {
    const QByteArray key = "/CreationDate (D:";
    const auto at = pdf.indexOf(key);
    const QByteArray date =
        QDateTime::fromSecsSinceEpoch(moment, Qt::UTC).toString(QStringLiteral("yyyyMMddHHmmss")).toLatin1();
    const auto end = at < 0 ? at : pdf.indexOf(')', at);
    if (end < 0)
        return;
    const auto from = at + key.size();
    const auto length = end - from;
    QByteArray fixed = date + 'Z';
    fixed.resize(length, ' '); // Qt's own may have a zone
    pdf.replace(from, length, fixed);
}

} // namespace

bool is_pdf(std::string_view path) {
    return path.ends_with(".pdf");
}

std::string pdf_of_html(const std::string& html, std::int64_t moment) {
    QHashSeed::setDeterministicGlobalSeed(); // the writer's fonts come in the order of a hash
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    QPdfWriter writer(&buffer);
    writer.setTitle(QStringLiteral("Evidence of the clock's error"));
    writer.setCreator(QStringLiteral("Tickervantage"));
    constexpr double margin_mm = 18;
    writer.setPageLayout(QPageLayout(QPageSize(QPageSize::A4), QPageLayout::Portrait,
                                     QMarginsF(margin_mm, margin_mm, margin_mm, margin_mm), QPageLayout::Millimeter));
    QTextDocument document;
    document.setHtml(QString::fromStdString(html));
    document.print(&writer);
    buffer.close();
    QHashSeed::resetRandomGlobalSeed();
    set_creation_date(bytes, moment);
    return bytes.toStdString();
}

} // namespace tickervantage
