#include "qt/label_cache.h"

#include <QFontMetricsF>
#include <QGuiApplication>
#include <QPaintDevice>

#include <algorithm>

namespace tickervantage {

namespace {

constexpr std::size_t MOST_LABELS = 1000;
constexpr std::size_t MOST_FACES = 8;

} // namespace

QFont font_of_size(double size, const QPaintDevice& device) {
    QFont font = QGuiApplication::font();
    font.setPointSizeF(size * 72 / device.logicalDpiY()); // only this may have a fraction, a size in pixels may not
    return font;
}

LabelCache::Face& LabelCache::face(double size, const QPaintDevice& device) {
    const QFont family = QGuiApplication::font();
    if (family != m_family || m_faces.size() > MOST_FACES)
        m_faces.clear();
    m_family = family;
    const int density = device.logicalDpiY();
    const auto known =
        std::ranges::find_if(m_faces, [&](const Face& one) { return one.size == size && one.density == density; });
    if (known != m_faces.end())
        return *known;
    const QFont font = font_of_size(size, device);
    const QFontMetricsF metrics(font, &device);
    m_faces.push_back({size, density, font, metrics.ascent(), metrics.capHeight()});
    return m_faces.back();
}

const QStaticText& LabelCache::label(Face& face, std::string_view text) {
    if (face.labels.size() > MOST_LABELS)
        face.labels.clear();
    const auto [entry, is_new] = face.labels.try_emplace(std::string(text));
    if (is_new) {
        entry->second.setTextFormat(Qt::PlainText);
        entry->second.setText(QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size())));
        entry->second.prepare({}, face.font);
    }
    return entry->second;
}

} // namespace tickervantage
