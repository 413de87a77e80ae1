// SPDX-License-Identifier: MIT
#include "adapters/loop/QtRunLoop.h"
#include "adapters/loop/QtTaskExecutor.h"
#include "adapters/secret/FakePrompter.h"
#include "adapters/secret/SecretServer.h"
#include "adapters/secret/SecretServiceStore.h"
#include "adapters/secret/SilentService.h"
#include "adapters/storage/JsonUserDefaults.h"
#include "base/Background.h"
#include "base/NotificationCenter.h"
#include "model/AppState.h"
#include "services/accounts/AccountKeys.h"
#include "services/accounts/IntegrationsStore.h"
#include "services/accounts/Keychain.h"
#include "services/refresh/ServiceCheck.h"
#include "settings/PreferencesStore.h"
#include "support/FakeFormatters.h"
#include "support/LoggedLines.h"
#include "support/MainThreadWatch.h"
#include "support/QtPrinters.h"
#include "support/UtcCalendar.h"
#include "support/WaitUntil.h"
#include "ui/controls/Look.h"
#include "ui/controls/PaneScroll.h"
#include "ui/controls/Sky.h"
#include "ui/integrations/IntegrationsPane.h"

#include <QAccessible>
#include <QApplication>
#include <QCheckBox>
#include <QClipboard>
#include <QDirIterator>
#include <QElapsedTimer>
#include <QLabel>
#include <QLineEdit>
#include <QTest>
#include <QVBoxLayout>

#include <gmock/gmock.h>

#include <functional>

using namespace Qt::StringLiterals;
using testing::Contains;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;

namespace zeph::ui {

namespace {

const auto typedKey = u"rk_live_Qm27xTf0"_s;
const auto keyField = u"Read-only key (rk_live_… or sk_…)"_s;
const auto keychainService = u"com.tavi.integrations"_s;
constexpr double longestMs = 16; // a frame

/// All that a screen reader can be told of `root` and what is in it.
QString spokenOf(QAccessibleInterface *root) {
    QString said;
    if (root == nullptr || !root->isValid()) {
        return said;
    }
    for (const auto kind : {QAccessible::Name, QAccessible::Description, QAccessible::Value,
                            QAccessible::Help, QAccessible::DebugDescription}) {
        said += root->text(kind) + u'\n';
    }
    if (QAccessibleTextInterface *text = root->textInterface()) {
        said += text->text(0, text->characterCount()) + u'\n';
    }
    for (int child = 0; child < root->childCount(); ++child) {
        said += spokenOf(root->child(child));
    }
    return said;
}

} // namespace

/// The form of an account, worked by the keyboard alone, with the settings in a file and the keys
/// in a keyring of the session.
class FormKeyringTest : public testing::Test {
protected:
    FormKeyringTest() : FormKeyringTest({std::chrono::seconds(30), std::chrono::seconds(60)}) {}
    explicit FormKeyringTest(const SecretServiceLimits &limits) : secrets(limits) {}

    ~FormKeyringTest() override {
        secrets.cancelAll();
        window.hide();
        delete scroll;
    }

    void open() {
        store =
            std::make_unique<IntegrationsStore>(defaults, keychain, notifications, loop, executor);
        check = std::make_unique<ServiceCheck>(background, FetchTools{{}, *store, keychain});
        pane = new IntegrationsPane(
            {preferences, *store, state, loop, {preferences, calendar, formatters}, *check});
        scroll = new PaneScroll(pane, &window);
        auto *column = new QVBoxLayout(&window);
        column->addWidget(scroll);
        window.resize(672, 580);
        window.show();
        QApplication::setActiveWindow(&window);
        QApplication::processEvents();
    }

    static QString nameOf(const QWidget &widget) {
        const auto *button = dynamic_cast<const QAbstractButton *>(&widget);
        return widget.accessibleName().isEmpty() && button != nullptr ? button->text()
                                                                      : widget.accessibleName();
    }

    /// Goes by Tab to what is called so.
    void tabTo(const QString &name) {
        constexpr int most = 100;
        for (int step = 0; step < most; ++step) {
            QWidget *const now = QApplication::focusWidget();
            if (now != nullptr && nameOf(*now) == name) {
                return;
            }
            press(Qt::Key_Tab);
        }
        FAIL() << "Tab does not lead to " << qPrintable(name);
    }

    void press(Qt::Key key) {
        QWidget *const focused = QApplication::focusWidget();
        QTest::keyClick(focused == nullptr ? &window : focused, key);
        QApplication::processEvents();
    }

    void type(const QString &text) {
        for (const QChar letter : text) {
            QTest::keyClick(QApplication::focusWidget(), letter.toLatin1());
            QApplication::processEvents();
        }
    }

    /// From the cards to the form of a new account, with the key typed.
    void fillForm() {
        tabTo(u"Stripe"_s);
        press(Qt::Key_Return);
        tabTo(u"Add another account"_s);
        press(Qt::Key_Return);
        tabTo(keyField);
        type(typedKey);
    }

    bool says(const QString &text) const {
        const auto labels = window.findChildren<QLabel *>();
        return std::any_of(labels.begin(), labels.end(), [&](const QLabel *label) {
            return label->isVisible() && label->text().startsWith(text);
        });
    }

    bool waitForText(const QString &text) const {
        return waitUntil([&] { return says(text); });
    }

    /// Works one control of each kind that the form has.
    void useForm() {
        tabTo(u"Display name"_s);
        type(u"b"_s);
        tabTo(u"Active"_s);
        press(Qt::Key_Space);
        tabTo(u"Show on wallpaper"_s);
        press(Qt::Key_Space);
    }

    /// Milliseconds for which the main thread was held at most while `use` ran. On a busy machine
    /// most rounds may be held up by others, so that of several the best one counts.
    static double longestHoldIn(const std::function<void()> &use) {
        double best = longestMs;
        for (int round = 0; round < 25 && best >= longestMs; ++round) {
            const MainThreadWatch watch;
            EXPECT_TRUE(waitUntil([&] { return watch.beats() > 5; }));
            use();
            best = std::min(best, watch.longestHoldMs());
        }
        return best;
    }

    QUuid account() const { return store->connections().back().id; }

    /// What the keyring has, as another program would read it.
    std::optional<QByteArray> kept() {
        SecretAnswer<std::optional<QByteArray>> answer;
        bool isRead = false;
        WorkOwner owner;
        background.run(
            owner,
            [this, name = secretAccount(account())] { return secrets.copy(keychainService, name); },
            [&](SecretAnswer<std::optional<QByteArray>> read) {
                answer = std::move(read);
                isRead = true;
            });
        EXPECT_TRUE(waitUntil([&] { return isRead; }));
        return answer.value;
    }

    /// The files below the home folder, but for those of the keyring, that hold the key.
    QStringList filesWithKey() const {
        QStringList found;
        QDirIterator files(server.home(), QDir::Files | QDir::Hidden, QDirIterator::Subdirectories);
        while (files.hasNext()) {
            QFile file(files.next());
            if (file.open(QFile::ReadOnly) && file.readAll().contains(typedKey.toUtf8())) {
                found << file.fileName();
            }
        }
        return found;
    }

    void expectNoTraces() {
        EXPECT_THAT(filesWithKey(), IsEmpty());
        EXPECT_FALSE(QApplication::clipboard()->text().contains(typedKey));
        EXPECT_FALSE(QApplication::clipboard()->text(QClipboard::Selection).contains(typedKey));
        EXPECT_FALSE(logged.all().join(u'\n').contains(typedKey));
        const QString said = spokenOf(QAccessible::queryAccessibleInterface(&window));
        EXPECT_TRUE(said.contains(keyField)) << "the window is read";
        EXPECT_FALSE(said.contains(typedKey));
    }

    LoggedLines logged{u"zeph.*=true"_s}; // before whoever logs
    SecretServer server;
    QtRunLoop loop;
    QtTaskExecutor executor;
    Background background = Background::over(executor, loop);
    JsonUserDefaults defaults{server.home() + u"/config/Zeph/defaults.json"_s};
    SecretServiceStore secrets;
    Keychain keychain{secrets, defaults};
    NotificationCenter notifications;
    FakeFormatters formatters;
    UtcCalendar calendar;
    PreferencesStore preferences{defaults, notifications, formatters};
    AppState state{Date{0}};
    std::unique_ptr<IntegrationsStore> store;
    std::unique_ptr<ServiceCheck> check;
    Sky window;
    Look look{window, Appearance::dark};
    PaneScroll *scroll = nullptr;
    IntegrationsPane *pane = nullptr;
};

TEST_F(FormKeyringTest, aTypedKeyIsInTheKeyringAndNowhereElse) {
    server.start();
    open();
    fillForm();
    // Whoever marks the key and presses the keys for copying gets nothing of it.
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_A, Qt::ControlModifier);
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_C, Qt::ControlModifier);
    expectNoTraces();
    press(Qt::Key_End);
    press(Qt::Key_Return);
    ASSERT_TRUE(waitUntil([this] { return store->isReady(store->connections().back()); }));
    EXPECT_TRUE(waitForText(u"Connected"_s));
    EXPECT_EQ(kept(), typedKey.toUtf8());
    expectNoTraces();
    for (const QLineEdit *field : window.findChildren<QLineEdit *>()) {
        EXPECT_FALSE(field->text().contains(typedKey)) << "it is not read back into the form";
    }
}

TEST_F(FormKeyringTest, aRefusedPromptIsToldAndLosesNothing) {
    server.start();
    open();
    fillForm(); // the collection is made by its first secret
    press(Qt::Key_Return);
    ASSERT_TRUE(waitForText(u"Connected"_s));
    const QUuid first = account();
    server.kill();
    server.startLocked();
    const FakePrompter prompter(server.bus(), FakePrompter::Person::refuses);
    tabTo(u"All integrations"_s);
    press(Qt::Key_Return);
    tabTo(u"Stripe"_s);
    press(Qt::Key_Return);
    tabTo(u"Add another account"_s);
    press(Qt::Key_Return);
    tabTo(keyField);
    type(typedKey);
    press(Qt::Key_Return);
    EXPECT_TRUE(waitForText(u"The keyring stayed locked"_s));
    EXPECT_EQ(prompter.shown(), 1);
    ASSERT_NE(account(), first);
    EXPECT_EQ(keychain.get(secretAccount(account())).value, typedKey) << "until the program ends";
    expectNoTraces();
}

TEST_F(FormKeyringTest, aKeyringThatHangsHoldsNoControlUp) {
    const SilentService silent(server.bus());
    open();
    fillForm();
    press(Qt::Key_Return);
    ASSERT_TRUE(waitUntil([&] { return silent.calls > 0; }));
    EXPECT_TRUE(waitForText(u"Saving"_s));
    EXPECT_LT(longestHoldIn([this] { useForm(); }), longestMs);
    EXPECT_FALSE(store->isReady(store->connections().back())) << "it hangs still";
    expectNoTraces();
}

/// With a keyring that is given up soon, so that the whole of a wait passes within a test. A long
/// one differs by the number alone.
class FormKeyringGivenUpTest : public FormKeyringTest {
protected:
    FormKeyringGivenUpTest()
        : FormKeyringTest({std::chrono::milliseconds(250), std::chrono::milliseconds(1)}) {}
};

TEST_F(FormKeyringGivenUpTest, noControlIsHeldUpFromTheSavingToTheWordThatItCameToNothing) {
    const auto word = u"The keyring gave no answer"_s;
    const SilentService silent(server.bus());
    open();
    fillForm();
    int uses = 0;
    const auto saveAndUse = [&] {
        tabTo(keyField);
        type(typedKey);
        press(Qt::Key_Return);
        EXPECT_TRUE(waitForText(u"Saving"_s));
        uses = 0;
        for (QElapsedTimer passed; !says(word); ++uses) {
            if (!passed.isValid()) {
                passed.start();
            }
            ASSERT_FALSE(passed.hasExpired(20'000)) << "it is never given up";
            useForm();
        }
    };
    EXPECT_LT(longestHoldIn(saveAndUse), longestMs);
    EXPECT_GT(uses, 0);
    EXPECT_GT(silent.calls, 0);
    expectNoTraces();
}

} // namespace zeph::ui
