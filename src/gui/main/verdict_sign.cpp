#include "gui/main/verdict_sign.h"

#include <QCoreApplication>

namespace tickervantage {

DiscSign sign_of(Verdict verdict) {
    switch (verdict) {
    case Verdict::unavailable:
        break;
    case Verdict::local:
        return disc_signs::clock();
    case Verdict::unsynchronised:
        return disc_signs::wave();
    case Verdict::holdover:
        return disc_signs::pause();
    case Verdict::correcting:
        return disc_signs::arrow();
    case Verdict::leap:
        return disc_signs::plus_minus();
    case Verdict::synchronised:
        return disc_signs::tick();
    }
    return disc_signs::cross();
}

QString short_words(Verdict verdict) {
    switch (verdict) {
    case Verdict::unavailable:
        break;
    case Verdict::local:
        return QCoreApplication::translate("headline", "Own time only");
    case Verdict::unsynchronised:
        return QCoreApplication::translate("headline", "Not synchronised");
    case Verdict::holdover:
        return QCoreApplication::translate("headline", "Holdover");
    case Verdict::correcting:
        //: state of the clock while a large offset is being corrected
        return QCoreApplication::translate("headline", "Correcting");
    case Verdict::leap:
        return QCoreApplication::translate("headline", "Synchronised, leap second pending");
    case Verdict::synchronised:
        return QCoreApplication::translate("headline", "Synchronised");
    }
    return QCoreApplication::translate("headline", "Not available");
}

} // namespace tickervantage
