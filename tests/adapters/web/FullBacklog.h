// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QSet>
#include <QUrl>

#include <vector>

namespace zeph {

/// A port of this machine where every further connection hangs on its way, because nobody takes
/// those that came.
class FullBacklog {
public:
    FullBacklog();
    ~FullBacklog();
    FullBacklog(const FullBacklog &) = delete;
    FullBacklog &operator=(const FullBacklog &) = delete;

    QUrl url() const;

    /// Connections of others that hang here.
    int hanging() const;

private:
    int m_listener;
    quint16 m_port = 0;
    std::vector<int> m_fillers;
    QSet<QByteArray> m_fillerAddresses; // as the kernel's table has them
};

} // namespace zeph
