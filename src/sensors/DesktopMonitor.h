// SPDX-License-Identifier: MIT
#pragma once

#include "core/records/DesktopSummary.h"

#include <QByteArray>
#include <QString>

#include <optional>

namespace zeph {

class DesktopFolder;

/// Counts what lies on the user's Desktop, flat: the content of folders is never visited. Main
/// thread only.
class DesktopMonitor {
public:
    /// Where the Desktop is, is found here once.
    explicit DesktopMonitor(DesktopFolder &folder);

    /// Renews the summary. While the folder can't be listed it stays as it was.
    void sample();

    const DesktopSummary &summary() const { return m_summary; }

private:
    static DesktopCategory classify(const QString &fileName);

    DesktopFolder &m_folder;
    std::optional<QByteArray> m_desktopURL;
    DesktopSummary m_summary;
};

} // namespace zeph
