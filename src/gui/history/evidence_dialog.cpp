#include "gui/history/evidence_dialog.h"

#include "gui/history/history_words.h"
#include "qt/named_widget.h"

#include <QCoreApplication>
#include <QDialog>
#include <QDialogButtonBox>
#include <QDoubleSpinBox>
#include <QFileDialog>
#include <QFormLayout>
#include <QLabel>
#include <QPushButton>

#include <utility>

namespace tickervantage {
namespace {

struct Texts {
    Q_DECLARE_TR_FUNCTIONS(history)
};

constexpr double milliseconds = 1e3; // in a second

void ask_for_file(QWidget* window, const EvidenceQuestion& question,
                  std::function<void(const EvidenceQuestion&, const QString&)> chosen) {
    //: history window: title of the dialog that asks for a file
    auto* dialog = new QFileDialog(window, Texts::tr("Save Evidence"));
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    dialog->setAcceptMode(QFileDialog::AcceptSave);
    //: file dialog: kinds of file; the part in brackets stays
    dialog->setNameFilters({Texts::tr("Document (*.pdf)"), Texts::tr("Web page (*.html)")});
    dialog->setDefaultSuffix(QStringLiteral("pdf"));
    dialog->selectFile(QStringLiteral("clock-evidence"));
    QObject::connect(dialog, &QFileDialog::filterSelected, dialog, [dialog](const QString& filter) {
        dialog->setDefaultSuffix(filter.section(QStringLiteral("*."), 1).chopped(1));
    });
    QObject::connect(dialog, &QFileDialog::fileSelected, window,
                     [question, chosen = std::move(chosen)](const QString& path) { chosen(question, path); });
    dialog->open();
}

QDoubleSpinBox* limit_field(QDialog* dialog, double seconds) {
    auto* limit = named(new QDoubleSpinBox(dialog), "limit",
                        //: history window: name of a field, and its tooltip
                        Texts::tr("Limit"), Texts::tr("How far off the clock may have been at the most"));
    limit->setDecimals(6);
    limit->setRange(1e-6, 1e6);
    limit->setValue(seconds > 0 ? seconds * milliseconds : 1);
    limit->setStepType(QAbstractSpinBox::AdaptiveDecimalStepType);
    limit->setSuffix(QStringLiteral(" ms"));
    return limit;
}

} // namespace

void ask_for_evidence(QWidget* window, const EvidenceQuestion& period,
                      std::function<void(const EvidenceQuestion&, const QString&)> chosen) {
    auto* dialog = new QDialog(window);
    dialog->setObjectName(QStringLiteral("evidence_dialog"));
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    //: history window: title of a dialog
    dialog->setWindowTitle(Texts::tr("Save Evidence"));
    auto* words = new QLabel(
        //: history window: %1 and %2 are dates and times
        Texts::tr("How long the clock was right within a limit, from %1 to %2, by the bound that chronyd itself wrote "
                  "into its tracking log. Zoom first to choose another period.")
            .arg(moment_words(static_cast<double>(period.from)), moment_words(static_cast<double>(period.to))),
        dialog);
    words->setWordWrap(true);
    auto* limit = limit_field(dialog, period.limit);
    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Cancel, dialog);
    //: history window: button of that dialog
    auto* save = buttons->addButton(Texts::tr("Save…"), QDialogButtonBox::AcceptRole);
    save->setObjectName(QStringLiteral("save"));
    auto* form = new QFormLayout(dialog);
    form->addRow(words);
    //: history window: label of the field
    form->addRow(Texts::tr("&Limit:"), limit);
    form->addRow(buttons);
    QObject::connect(buttons, &QDialogButtonBox::rejected, dialog, &QDialog::reject);
    QObject::connect(buttons, &QDialogButtonBox::accepted, dialog, &QDialog::accept);
    QObject::connect(dialog, &QDialog::accepted, window, [window, period, limit, chosen = std::move(chosen)] {
        EvidenceQuestion question = period;
        question.limit = limit->value() / milliseconds;
        ask_for_file(window, question, chosen);
    });
    dialog->open();
}

} // namespace tickervantage
