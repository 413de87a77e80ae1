// SPDX-License-Identifier: MIT
#include "ui/settings/SettingsFileCard.h"

#include "services/accounts/AccountKeys.h"
#include "services/transfer/SettingsFile.h"
#include "ui/controls/PillButton.h"
#include "ui/controls/StatusLine.h"
#include "ui/settings/PaneFixture.h"

#include <QFile>
#include <QFileDialog>
#include <QFileInfo>
#include <QTemporaryDir>

using namespace Qt::StringLiterals;

namespace zeph::ui {

class SettingsFileCardTest : public PaneFixture {
protected:
    SettingsFileCard &open() { return show(new SettingsFileCard(paneContext(), background)); }

    QString path(const QString &name = u"settings.json"_s) const { return files.filePath(name); }

    QByteArray content() const {
        QFile file(path());
        EXPECT_TRUE(file.open(QIODevice::ReadOnly));
        return file.readAll();
    }

    void write(const QByteArray &bytes) const {
        QFile file(path());
        EXPECT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(bytes);
    }

    /// The kind of the line that tells how it went, and its text.
    std::pair<StatusLine::Kind, QString> told() const {
        const auto *line = all<StatusLine>().front();
        return {line->kind(), line->isVisible() ? line->text() : QString()};
    }

    void finish() {
        executor.runAll();
        settle();
    }

    QTemporaryDir files;
};

TEST_F(SettingsFileCardTest, exportsAllSettingsForTheUserAlone) {
    preferences.setBackgroundHex(u"#123456"_s);
    SettingsFileCard &card = open();
    card.exportTo(path());
    EXPECT_FALSE(QFileInfo::exists(path())); // away from the main thread
    finish();
    EXPECT_EQ(content(), SettingsFile::exported(preferences, integrations));
    EXPECT_EQ(QFile::permissions(path()) & (QFile::ReadGroup | QFile::ReadOther),
              QFile::Permissions());
    EXPECT_EQ(told(), std::pair(StatusLine::Kind::ok, u"Exported to settings.json."_s));
}

TEST_F(SettingsFileCardTest, tellsThatAFileCouldNotBeWritten) {
    open().exportTo(path(u"missing/settings.json"_s));
    finish();
    EXPECT_EQ(told(), std::pair(StatusLine::Kind::error, u"settings.json could not be written."_s));
}

TEST_F(SettingsFileCardTest, tellsThatEndpointsInALockedKeyringAreNotInTheFile) {
    defaults.set(endpointsExistKey(), true);
    secrets.answer(SecretOutcome::refused);
    IntegrationsStore locked(defaults, keychain, notificationCenter, loop, executor);
    finish();
    SettingsFileCard &card = show(new SettingsFileCard(paneContext(&locked), background));
    card.exportTo(path());
    finish();
    EXPECT_EQ(told(), std::pair(StatusLine::Kind::hint,
                                u"Exported to settings.json, without custom endpoints, since the "
                                "keyring is locked."_s));
    secrets.answer(SecretOutcome::done);
    locked.loadCustomAPIs();
    finish();
    card.exportTo(path());
    finish();
    EXPECT_EQ(told(), std::pair(StatusLine::Kind::ok, u"Exported to settings.json."_s));
    delete &card;
}

TEST_F(SettingsFileCardTest, importsWhatWasExported) {
    preferences.setBackgroundHex(u"#123456"_s);
    preferences.setUse24HourClock(true);
    SettingsFileCard &card = open();
    card.exportTo(path());
    finish();
    preferences.setBackgroundHex(u"#000000"_s);
    preferences.setUse24HourClock(false);
    card.importFrom(path());
    finish();
    EXPECT_EQ(preferences.backgroundHex(), u"#123456"_s);
    EXPECT_TRUE(preferences.use24HourClock());
    EXPECT_EQ(told(), std::pair(StatusLine::Kind::ok, SettingsFile::summary({})));
}

TEST_F(SettingsFileCardTest, aFileThatIsNoneOfOursChangesNothing) {
    preferences.setBackgroundHex(u"#123456"_s);
    SettingsFileCard &card = open();
    write("{\"hello\": 1}");
    const int writes = defaults.writes;
    card.importFrom(path());
    finish();
    EXPECT_EQ(defaults.writes, writes);
    EXPECT_EQ(told().first, StatusLine::Kind::error);
    EXPECT_FALSE(told().second.isEmpty());
}

TEST_F(SettingsFileCardTest, whatIsMissingOrNoFileOrTooLargeIsNotRead) {
    SettingsFileCard &card = open();
    const auto refused = std::pair(StatusLine::Kind::error, u"This file could not be read."_s);
    card.importFrom(path(u"missing.json"_s));
    finish();
    EXPECT_EQ(told(), refused);
    card.importFrom(files.path());
    finish();
    EXPECT_EQ(told(), refused);
    QFile large(path());
    ASSERT_TRUE(large.open(QIODevice::WriteOnly));
    large.resize((qint64{16} << 20) + 1);
    large.close();
    card.importFrom(path());
    finish();
    EXPECT_EQ(told(), refused);
}

TEST_F(SettingsFileCardTest, anAnswerAfterTheEndOfTheCardIsDropped) {
    SettingsFileCard *card = &open();
    write(SettingsFile::exported(preferences, integrations));
    card->importFrom(path());
    delete card;
    finish();
}

TEST_F(SettingsFileCardTest, asksForTheFileWithoutWaiting) {
    open();
    click(named<PillButton>(u"Export…"_s));
    auto *dialog = window.findChild<QFileDialog *>();
    ASSERT_NE(dialog, nullptr);
    EXPECT_EQ(dialog->acceptMode(), QFileDialog::AcceptSave);
    Q_EMIT dialog->fileSelected(path());
    finish();
    EXPECT_TRUE(QFileInfo::exists(path()));
}

} // namespace zeph::ui
