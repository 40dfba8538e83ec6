#include "gui/laboratory/compensation_page.h"

#include <QCoreApplication>
#include <QLabel>
#include <QVBoxLayout>

namespace tickervantage {
namespace {

struct Texts {
    Q_DECLARE_TR_FUNCTIONS(laboratory)
};

} // namespace

CompensationPage::CompensationPage(QWidget* parent) : QWidget(parent) {
    setObjectName(QStringLiteral("compensation_page"));
    auto* words = new QLabel(
        //: laboratory: page on temperature compensation
        Texts::tr(
            "A crystal's frequency goes with its temperature, and chronyd can compensate that by a table. The table is "
            "made of frequencies and temperatures that were read together: open the window “Frequency and "
            "Temperature” and let it read for three days at the least. Then\n\n    tickerctl tempcomp "
            "scattermap.json -o points\n\nmakes the table, and refuses where it would not help."),
        this);
    words->setObjectName(QStringLiteral("compensation_words"));
    words->setWordWrap(true);
    words->setTextInteractionFlags(Qt::TextSelectableByMouse);
    auto* column = new QVBoxLayout(this);
    column->addWidget(words);
    column->addStretch(1);
}

} // namespace tickervantage
