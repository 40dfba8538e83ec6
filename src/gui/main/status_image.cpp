#include "gui/main/status_image.h"

#include <QCoreApplication>

namespace tickervantage {
namespace {

DiscSign sign_of(chronydStatus status) {
    switch (status) {
    case chronydStatus::synchronised:
        return disc_signs::tick();
    case chronydStatus::notlocked:
        return disc_signs::wave();
    case chronydStatus::unavailable:
        break;
    }
    return disc_signs::cross();
}

} // namespace

StatusImage::StatusImage(chronydStatus status, QWidget* parent) : SignImage(parent, 1.3) {
    //: main window: name of the image beside the words for the daemon's state
    setAccessibleName(QCoreApplication::translate("status", "State of chronyd"));
    show_sign(sign_of(status), status_words(status));
}

QString status_words(chronydStatus status) {
    switch (status) {
    case chronydStatus::synchronised:
        //: main window: state of the daemon
        return QCoreApplication::translate("status", "Synchronised");
    case chronydStatus::notlocked:
        //: main window: state of the daemon; it runs but follows no source yet
        return QCoreApplication::translate("status", "Not synchronised");
    case chronydStatus::unavailable:
        break;
    }
    //: main window: state of the daemon; it gave no usable answer
    return QCoreApplication::translate("status", "Not available");
}

} // namespace tickervantage
