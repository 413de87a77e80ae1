// SPDX-License-Identifier: MIT
#include "ui/controls/PillButton.h"
#include "ui/controls/StatusLine.h"
#include "ui/settings/PaneFixture.h"
#include "ui/settings/SettingsFileCard.h"

#include <QFile>
#include <QFileDialog>
#include <QTemporaryDir>

using namespace Qt::StringLiterals;

namespace zeph::ui {

namespace {

/// Export and import as a person does them: by the buttons, and a dialog for the file.
class SettingsFileDialogTest : public PaneFixture {
protected:
    SettingsFileDialogTest() {
        QApplication::setAttribute(Qt::AA_DontUseNativeDialogs);
        card.resize(600, 120);
        card.show();
        settle();
    }
    ~SettingsFileDialogTest() override {
        card.hide();
        QApplication::setAttribute(Qt::AA_DontUseNativeDialogs, false);
    }

    /// Lets the file be read or written.
    void finish() {
        executor.runAll();
        settle();
    }

    /// Presses the button and answers the dialog with that file; by its button, or else Escape.
    void choose(const QString &button, const QString &path, bool isAccepted = true) {
        for (QPushButton *one : card.findChildren<QPushButton *>()) {
            if (one->text() == button) {
                QTest::mouseClick(one, Qt::LeftButton);
            }
        }
        auto *const dialog = card.findChild<QFileDialog *>();
        ASSERT_NE(dialog, nullptr);
        ASSERT_TRUE(dialog->isVisible());
        dialog->selectFile(path);
        if (isAccepted) {
            QMetaObject::invokeMethod(dialog, "accept", Qt::DirectConnection);
        } else {
            QTest::keyClick(dialog, Qt::Key_Escape);
        }
        QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        finish();
        EXPECT_EQ(card.findChild<QFileDialog *>(), nullptr) << "one that is closed is gone";
    }

    QString told() {
        for (const QWidget *widget : card.findChildren<QWidget *>()) {
            if (const auto *line = dynamic_cast<const StatusLine *>(widget)) {
                return line->isHidden() ? QString() : line->text();
            }
        }
        return {};
    }

    void write(const QString &name, const QByteArray &bytes) const {
        QFile file(path(name));
        ASSERT_TRUE(file.open(QFile::WriteOnly));
        file.write(bytes);
    }

    QString path(const QString &name) const { return folder.filePath(name); }

    QTemporaryDir folder;
    SettingsFileCard card{paneContext(), background};
};

TEST_F(SettingsFileDialogTest, whatIsExportedCanBeImported) {
    preferences.setUnitSystem(UnitSystem::imperial);
    choose(u"Export…"_s, path(u"mine.json"_s));
    EXPECT_EQ(told(), u"Exported to mine.json."_s);
    ASSERT_TRUE(QFile::exists(path(u"mine.json"_s)));
    preferences.setUnitSystem(UnitSystem::metric);
    choose(u"Import…"_s, path(u"mine.json"_s));
    EXPECT_EQ(preferences.unitSystem(), UnitSystem::imperial);
    EXPECT_FALSE(told().isEmpty());
}

TEST_F(SettingsFileDialogTest, aNameWithoutAnEndingGetsOne) {
    choose(u"Export…"_s, path(u"mine"_s));
    EXPECT_TRUE(QFile::exists(path(u"mine.json"_s)));
    EXPECT_EQ(told(), u"Exported to mine.json."_s);
}

TEST_F(SettingsFileDialogTest, aDialogThatIsLeftChangesNothing) {
    write(u"other.json"_s, "{}");
    choose(u"Import…"_s, path(u"other.json"_s), false);
    EXPECT_EQ(told(), QString());
    choose(u"Export…"_s, path(u"none.json"_s), false);
    EXPECT_FALSE(QFile::exists(path(u"none.json"_s)));
    EXPECT_EQ(told(), QString());
}

TEST_F(SettingsFileDialogTest, aFileThatHoldsNoSettingsIsToldInWords) {
    preferences.setUnitSystem(UnitSystem::imperial);
    for (const QByteArray &bytes : {QByteArray("not json"), QByteArray("[]"), QByteArray()}) {
        write(u"broken.json"_s, bytes);
        choose(u"Import…"_s, path(u"broken.json"_s));
        EXPECT_FALSE(told().isEmpty()) << bytes.constData();
        EXPECT_EQ(preferences.unitSystem(), UnitSystem::imperial);
    }
}

TEST_F(SettingsFileDialogTest, aFileThatGoesMeanwhileIsToldInWords) {
    card.importFrom(path(u"gone.json"_s));
    finish();
    EXPECT_EQ(told(), u"This file could not be read."_s);
}

} // namespace

} // namespace zeph::ui
