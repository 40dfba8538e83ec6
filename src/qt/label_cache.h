// Short texts that are drawn again and again, such as the labels of an axis: laid out once.
//
// Fonts are the application's, in points of the canvas; a change of the application's font forgets all. Main thread, or
// the thread that owns the painter.
#pragma once

#include <QFont>
#include <QStaticText>

#include <list>
#include <string>
#include <string_view>
#include <unordered_map>

class QPaintDevice;

namespace tickervantage {

// Points of the canvas are units of the painter, whatever density the device claims.
[[nodiscard]] QFont font_of_size(double size, const QPaintDevice& device);

class LabelCache {
public:
    struct Face {
        double size = 0;
        int density = 0; // of the device
        QFont font;
        double ascent = 0;
        double cap_height = 0;
        std::unordered_map<std::string, QStaticText> labels = {};
    };

    // Valid until the next call.
    [[nodiscard]] Face& face(double size, const QPaintDevice& device);
    [[nodiscard]] static const QStaticText& label(Face& face, std::string_view text);

private:
    QFont m_family;
    std::list<Face> m_faces;
};

} // namespace tickervantage
