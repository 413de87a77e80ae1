// SPDX-License-Identifier: MIT
#pragma once

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <utility>
#include <vector>

namespace zeph {

/// A folder in the form of /sys/class/power_supply that the test fills.
class SupplyTree {
public:
    using Attributes = std::vector<std::pair<const char *, const char *>>;

    QString root() const { return m_folder.path(); }

    /// Adds a supply, or writes more attributes of one. The kernel ends each with a line feed.
    void add(const QString &name, const Attributes &attributes) const {
        const QDir folder(m_folder.path());
        EXPECT_TRUE(folder.mkpath(name));
        for (const auto &[attribute, value] : attributes) {
            QFile file(folder.filePath(name + u'/' + QString::fromLatin1(attribute)));
            EXPECT_TRUE(file.open(QIODevice::WriteOnly));
            file.write(value);
            file.write("\n");
        }
    }
    void remove(const QString &name) const {
        EXPECT_TRUE(QDir(m_folder.filePath(name)).removeRecursively());
    }

    void addMains(const char *online) const {
        add(QStringLiteral("AC"), {{"type", "Mains"}, {"online", online}});
    }

    /// A battery of 50 Wh that was made for 60 Wh, at 12 V.
    void addBattery(const QString &name, const char *status, const char *energyNow,
                    const char *powerNow) const {
        add(name, {{"type", "Battery"},
                   {"present", "1"},
                   {"status", status},
                   {"energy_now", energyNow},
                   {"energy_full", "50000000"},
                   {"energy_full_design", "60000000"},
                   {"power_now", powerNow},
                   {"voltage_min_design", "12000000"},
                   {"cycle_count", "212"},
                   {"capacity", "1"}});
    }

private:
    QTemporaryDir m_folder;
};

} // namespace zeph
