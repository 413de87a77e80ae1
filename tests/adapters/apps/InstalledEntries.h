// SPDX-License-Identifier: MIT
#pragma once

#include "adapters/apps/DesktopEntries.h"
#include "support/ManualClock.h"
#include "support/ManualRunLoop.h"
#include "support/ManualTaskExecutor.h"
#include "support/WaitUntil.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace zeph {

/// Desktop entries in a folder of the test's own.
class InstalledEntries {
public:
    InstalledEntries() {
        QDir(m_data.path()).mkpath(QStringLiteral("applications"));
        install(QStringLiteral("org.example.Editor"), "Name=Editor\n");
        install(QStringLiteral("term"), "Name=Terminal\nStartupWMClass=XTermLike\n");
        read();
    }

    /// At one blow: a file that is written in its place is noticed when it comes and again when it
    /// is whole, and a reading between the two is followed by another, which nobody awaits.
    void install(const QString &identifier, const QByteArray &keys) {
        QFile file(m_data.filePath(QStringLiteral("coming")));
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write("[Desktop Entry]\nType=Application\n" + keys);
        ASSERT_TRUE(file.rename(pathOf(identifier)));
    }

    /// Reads them, as it happens away from the main thread.
    void read() {
        m_executor.runAll();
        m_runLoop.drain();
    }

    /// Turns the event loop until what was installed since the last reading is noticed.
    void letNotice() {
        ASSERT_TRUE(waitUntil([this] { return m_executor.waiting() > 0; }));
    }

    QString pathOf(const QString &identifier) const {
        return m_data.path() + QStringLiteral("/applications/") + identifier +
               QStringLiteral(".desktop");
    }

    DesktopEntries &entries() { return m_entries; }

private:
    QTemporaryDir m_data;
    ManualClock m_clock;
    ManualRunLoop m_runLoop{m_clock};
    ManualTaskExecutor m_executor;
    DesktopEntries m_entries{
        {m_data.path()}, QStringLiteral("en_US"), Background::over(m_executor, m_runLoop)};
};

} // namespace zeph
