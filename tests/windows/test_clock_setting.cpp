#include "base/failure_codes.h"
#include "gui/administration/step_time_window.h"
#include "gui/administration/synchronize_window.h"
#include "settings/settings_catalogue.h"
#include "support/memory_stores.h"
#include "support/test.h"
#include "support/window_test.h"

namespace tickervantage {
namespace {

struct SynchronizeTest : testing::WindowControls<Synchronize> {
    testing::MemorySettingsStore store;
    DefaultSettings settings{store};
    Synchronisation asked;

    void SetUp() override {
        window = std::make_unique<Synchronize>(settings, nullptr);
        QObject::connect(window.get(), &Synchronize::wanted, [this](const Synchronisation& what) { asked = what; });
        window->windowDidLoad();
        window->show();
    }
};

TEST_F(SynchronizeTest, AsksSavesAndShowsWhatWasPrinted) {
    auto* timeout = find<QSpinBox>("m_timeout");
    EXPECT_EQ(timeout->value(), 30);
    EXPECT_TRUE(find<QCheckBox>("m_restart_chronyd")->isChecked());
    for (const auto& [tried, taken] : {std::pair{0, 1}, {121, 120}}) {
        timeout->setValue(tried);
        EXPECT_EQ(timeout->value(), taken);
    }
    find<QLineEdit>("m_server")->setText(QStringLiteral(" ntp.example port 1123 "));
    find<QCheckBox>("m_restart_chronyd")->setChecked(false);
    find<QPushButton>("m_sync")->click();
    EXPECT_EQ(asked.server, "ntp.example port 1123");
    EXPECT_EQ(asked.timeout_seconds, 120);
    EXPECT_FALSE(asked.restart_chronyd || load(settings, settings::sync_restart_chronyd));
    EXPECT_EQ(load(settings, settings::sync_ntp_server), "ntp.example port 1123");
    EXPECT_TRUE(find<QProgressBar>("m_busy")->isVisible() && find<QLabel>("m_busy_msg")->isVisible());
    EXPECT_FALSE(find<QPushButton>("m_sync")->isEnabled() || find<QCheckBox>("m_restart_chronyd")->isEnabled());
    window->show_result({.output = "System clock wrong by 0.1 s\n"});
    EXPECT_TRUE(find<QPlainTextEdit>("m_output")->toPlainText().contains(QStringLiteral("wrong by")));
    EXPECT_TRUE(find<QPushButton>("m_sync")->isEnabled());
    EXPECT_FALSE(find<QProgressBar>("m_busy")->isVisible() || find<QLabel>("m_busy_msg")->isVisible());
}

TEST_F(SynchronizeTest, WhatFailedIsSaidBesideWhatWasPrinted) {
    find<QPushButton>("m_sync")->click();
    window->show_result({.outcome = failed(FailureCode::nothing_done)});
    EXPECT_EQ(find<QLabel>("words")->text(), QStringLiteral("Nothing was done."));
    find<QPushButton>("m_sync")->click();
    window->show_result({.outcome = failed(FailureCode::clock_not_synchronised), .output = "No suitable source\n"});
    EXPECT_EQ(find<QLabel>("words")->text(), QStringLiteral("The clock was not synchronised."));
    EXPECT_TRUE(find<QPlainTextEdit>("m_output")->toPlainText().contains(QStringLiteral("suitable")));
}

TEST_F(SynchronizeTest, WhatIsNoServerIsNotAskedFor) {
    for (const char* text : {"", "  ", "a'b", "a\"b", "$(reboot)", "a;b", "a\\"}) {
        find<QLineEdit>("m_server")->setText(QLatin1String(text));
        EXPECT_FALSE(find<QPushButton>("m_sync")->isEnabled()) << text;
    }
    find<QLineEdit>("m_server")->setText(QStringLiteral("fe80::1%eth0"));
    EXPECT_TRUE(find<QPushButton>("m_sync")->isEnabled());
}

TEST(StepTime, SaysInWordsWhatWillHappenAndSendsIt) {
    struct Case {
        const char* text;
        const char* words;
        double sent; // not-a-number: nothing
    };
    const Case cases[]{{"-1.5", "The clock will go back 1.5 s.", -1.5},
                       {"\u22121.5", "The clock will go back 1.5 s.", -1.5},
                       {"93784", "The clock will go forward 1 d 2 h 3 min 4 s.", 93784},
                       {"0.1234567", "The clock will go forward 0.123457 s.", 0.123457},
                       {"0", "The clock stays as it is.", NAN},
                       {"-0.0", "The clock stays as it is.", NAN},
                       {"1e99", "This is no number of seconds.", NAN},
                       {"inf", "This is no number of seconds.", NAN},
                       {"soon", "This is no number of seconds.", NAN}};
    for (const auto& c : cases) {
        double sent = NAN;
        const QPointer<StepTime> window = new StepTime(nullptr);
        QObject::connect(window, &StepTime::wanted, [&](double offset) { sent = offset; });
        window->show();
        auto* field = window->findChild<QLineEdit*>(QStringLiteral("m_offset"));
        EXPECT_EQ(field->text().toDouble(), 0);
        field->setText(QString::fromUtf8(c.text));
        Q_EMIT field->textEdited(field->text());
        EXPECT_EQ(window->findChild<QLabel*>(QStringLiteral("step_words"))->text(), QLatin1String(c.words));
        window->findChild<QPushButton*>(QStringLiteral("step"))->click();
        EXPECT_TRUE(std::isnan(c.sent) ? std::isnan(sent) : sent == c.sent) << c.text << " sent " << sent;
        delete window;
    }
}

} // namespace
} // namespace tickervantage
