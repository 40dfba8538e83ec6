#include "gui/main/verdict_panel.h"

#include "chrony/truth/headline.h"
#include "gui/main/budget_view.h"
#include "gui/main/notice_bar.h"
#include "gui/main/verdict_sign.h"
#include "qt/in_words.h"
#include "qt/named_widget.h"
#include "qt/text_scale.h"

#include <QBoxLayout>
#include <QCoreApplication>
#include <QLabel>
#include <QPushButton>

#include <utility>

namespace tickervantage {
namespace {

struct Texts {
    Q_DECLARE_TR_FUNCTIONS(verdict)
};

// Of sources that are bad.
QString explain_words(Verdict verdict) {
    switch (verdict) {
    case Verdict::holdover:
        //: main window: notice while no source keeps the clock right
        return Texts::tr("The clock runs on by itself: its error grows until a source answers again.");
    case Verdict::local:
        //: main window: notice while chronyd follows nothing but this machine's own clock
        return Texts::tr("Nothing compares this clock with true time, although chronyd calls it synchronised.");
    case Verdict::correcting:
        //: main window: notice while a large offset is being corrected slowly
        return Texts::tr("Until the correction is done, the clock is further off than its sources would leave open.");
    default:
        //: main window: notice while chronyd follows no source
        return Texts::tr("chronyd follows no source yet: until it does, nothing keeps this clock right.");
    }
}

struct Offer {
    QString words;
    QString button = {};
    NoticeTone tone = NoticeTone::hint;
};

// Where another program sets the clock there is no haste; but nobody knows how right it is.
QString absence_words(Mending mending, const QString& other_program) {
    const bool is_missing = mending == Mending::install;
    if (other_program.isEmpty() && is_missing)
        //: main window: notice
        return Texts::tr("chrony is not installed: nothing keeps this clock right.");
    if (other_program.isEmpty())
        //: main window: notice
        return Texts::tr("chronyd is not running: nothing keeps this clock right.");
    if (is_missing)
        //: main window: notice; %1 is a program such as systemd-timesyncd
        return Texts::tr("chrony is not installed: %1 sets this clock, and nothing tells how right it is.")
            .arg(other_program);
    //: main window: notice; %1 is a program such as systemd-timesyncd
    return Texts::tr("chronyd is not running: %1 sets this clock, and nothing tells how right it is.")
        .arg(other_program);
}

Offer offer_of(Mending mending, Verdict verdict, const QString& other_program) {
    const NoticeTone urgency = other_program.isEmpty() ? NoticeTone::harm : NoticeTone::doubt;
    switch (mending) {
    case Mending::none:
        break;
    case Mending::install:
        return {absence_words(mending, other_program),
                //: main window: button that mends what the notice beside it tells of
                Texts::tr("I&nstall chrony…"), urgency};
    case Mending::use_distribution:
        //: main window: notice
        return {Texts::tr("This system has a chrony of its own, but the preferences name another one."),
                //: main window: button that has the preferences name the system's chrony
                Texts::tr("&Use This System's chrony…"),
                verdict == Verdict::unavailable ? NoticeTone::harm : NoticeTone::doubt};
    case Mending::start:
        return {absence_words(mending, other_program),
                //: main window: button that mends what the notice beside it tells of
                Texts::tr("St&art chronyd"), urgency};
    case Mending::explain:
        return {.words = explain_words(verdict), .tone = NoticeTone::doubt};
    case Mending::turn_on_logging:
        //: main window: notice
        return {Texts::tr("chrony keeps no log of its own, so the graph of the log stays empty."),
                //: main window: button that mends what the notice beside it tells of
                Texts::tr("Turn On &Logging…")};
    case Mending::open_logs:
        //: main window: notice
        return {Texts::tr("Only an administrator may read chrony's logs, so the graph of the log stays empty."),
                //: main window: button that mends what the notice beside it tells of
                Texts::tr("&Let Me Read the Logs")};
    }
    return {};
}

QLabel* words_label(QWidget* parent, const char* object_name, const QString& accessible_name) {
    auto* label = named(new QLabel(parent), object_name, accessible_name);
    label->setTextFormat(Qt::PlainText);
    label->setTextInteractionFlags(Qt::TextSelectableByMouse);
    label->setWordWrap(true);
    return label;
}

// As it stands on a line of its own, not behind a colon; a program's name begins as it does.
QString as_sentence(const QString& words) {
    return words.startsWith(QLatin1String("chronyd")) ? words : words.left(1).toUpper() + words.mid(1);
}

void show_sentence(QLabel* label, const std::optional<Sentence>& sentence) {
    const QString words = sentence ? as_sentence(in_words(*sentence)) : QString();
    if (words != label->text())
        label->setText(words);
    label->setVisible(!words.isEmpty());
}

} // namespace

VerdictPanel::VerdictPanel(QWidget* parent) : QFrame(parent) {
    setObjectName(QStringLiteral("verdict"));
    //: main window: name of the image of the verdict on the clock
    m_image = named(new SignImage(this, 2.4), "verdict_image", Texts::tr("Verdict"));
    build_words();
    build_notice();
    //: main window: name of the bar that shows what the error bound is made of
    m_budget =
        named(new BudgetView(this), "error_budget", Texts::tr("What the error bound is made of"),
              //: main window: tooltip of that bar
              Texts::tr("What the error bound is made of: the correction that is under way, half of the delay on "
                        "the way to the reference clock, what the measurements leave open, and what was added "
                        "since the last of them."));
    auto* words = new QVBoxLayout;
    words->setSpacing(2);
    for (auto* label : {m_name, m_error, m_reason, m_caution})
        words->addWidget(label);
    words->addStretch(1);
    auto* told = new QHBoxLayout;
    told->setSpacing(10);
    told->addWidget(m_image, 0, Qt::AlignTop);
    told->addLayout(words, 1);
    m_row = new QBoxLayout(QBoxLayout::LeftToRight);
    m_row->setSpacing(16);
    m_row->addLayout(told, 1);
    m_row->addWidget(m_budget, 1);
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(8);
    column->addLayout(m_row);
    column->addWidget(m_notice);
}

void VerdictPanel::build_words() {
    //: main window: name of the verdict on the clock
    m_name = words_label(this, "verdict_name", Texts::tr("Verdict on the clock"));
    QFont large = m_name->font();
    large.setPointSizeF(large.pointSizeF() * 1.7);
    large.setBold(true);
    m_name->setFont(large);
    //: main window: name of the sentence that says why the verdict is so
    m_reason = words_label(this, "verdict_reason", Texts::tr("Why"));
    //: main window: name of the sentence that says how far off the clock can be
    m_error = words_label(this, "verdict_error", Texts::tr("Error of the clock"));
    QFont second = m_error->font();
    second.setPointSizeF(second.pointSizeF() * 1.15);
    second.setWeight(QFont::DemiBold);
    m_error->setFont(second);
    //: main window: name of the sentence that says that chronyd leaves the clock alone
    m_caution = words_label(this, "verdict_caution", Texts::tr("Which clock is meant"));
}

void VerdictPanel::build_notice() {
    m_notice = new NoticeBar(this);
    m_notice->setObjectName(QStringLiteral("verdict_notice"));
    //: main window: name of the notice below the verdict
    m_notice_words = words_label(m_notice, "verdict_notice_words", Texts::tr("Notice"));
    //: main window: button that explains the verdict and each source
    m_explain = named(new QPushButton(Texts::tr("E&xplain"), m_notice), "explain_verdict",
                      //: main window: name of that button
                      Texts::tr("Explain"));
    //: main window: name of the button that mends what the notice beside it tells of, before it is known what
    m_mend = named(new QPushButton(m_notice), "mend", Texts::tr("Mend it"));
    m_notice->add(m_notice_words);
    m_notice->add_button(m_explain);
    m_notice->add_button(m_mend);
    //: main window: button that takes away an alarm until it is over
    m_quiet = named(new QPushButton(Texts::tr("&Quiet"), m_notice), "quiet",
                    //: main window: name of that button
                    Texts::tr("Quiet"),
                    //: main window: tooltip of that button
                    Texts::tr("Say no more of this until it is over"));
    m_notice->add_button(m_quiet);
    connect(m_quiet, &QPushButton::clicked, this, &VerdictPanel::quiet_wanted);
    m_notice->hide();
    connect(m_explain, &QPushButton::clicked, this, &VerdictPanel::explanation_wanted);
    connect(m_mend, &QPushButton::clicked, this, [this] { Q_EMIT mending_wanted(m_mending); });
}

void VerdictPanel::show_truth(const ClockTruth& truth) {
    const Headline words = headline(truth.reports, truth.budget, truth.expected);
    show_sentence(m_name, words.name);
    if (words.verdict != Verdict::unavailable) // else the notice of the reading says why
        show_sentence(m_reason, words.reason);
    show_sentence(m_error, words.error);
    show_sentence(m_caution, words.caution);
    m_budget->show_budget(truth.budget);
    if (std::exchange(m_verdict, truth.verdict) == truth.verdict)
        return;
    m_image->show_sign(sign_of(truth.verdict), m_name->text());
    show_notice();
}

void VerdictPanel::show_silence(const QString& sentence) {
    if (m_verdict != Verdict::unavailable)
        return;
    m_reason->setText(sentence);
    m_reason->setVisible(!sentence.isEmpty());
}

void VerdictPanel::show_mending_facts(const MendingFacts& facts) {
    m_facts = facts;
    show_notice();
}

void VerdictPanel::show_alarm(const QString& words) {
    m_alarm = words;
    show_notice();
}

// What can be mended comes first; in place of what can only be explained the alarm says it better.
void VerdictPanel::show_notice() {
    if (!m_verdict)
        return;
    m_mending = what_mends(*m_verdict, m_facts);
    const Offer offer = offer_of(m_mending, *m_verdict, QString::fromStdString(m_facts.other_program));
    const bool is_alarm = !m_alarm.isEmpty() && offer.button.isEmpty();
    m_notice_words->setText(is_alarm ? m_alarm : offer.words);
    m_notice->set_tone(is_alarm ? NoticeTone::doubt : offer.tone);
    m_mend->setText(offer.button);
    if (!offer.button.isEmpty())
        m_mend->setAccessibleName(QString(offer.button).remove(QLatin1Char('&')));
    m_mend->setVisible(!offer.button.isEmpty());
    m_explain->setVisible(is_alarm || m_mending == Mending::explain);
    m_quiet->setVisible(!m_alarm.isEmpty());
    m_notice->setVisible(is_alarm || m_mending != Mending::none);
}

void VerdictPanel::set_wide(bool wide) {
    constexpr int widest_bar = 560;
    m_budget->setMaximumWidth(wide ? scaled(widest_bar, *this) : QWIDGETSIZE_MAX);
    m_row->setDirection(wide ? QBoxLayout::LeftToRight : QBoxLayout::TopToBottom);
}

} // namespace tickervantage
