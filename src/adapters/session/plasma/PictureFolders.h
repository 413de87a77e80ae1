// SPDX-License-Identifier: MIT
#pragma once

#include "adapters/session/plasma/PictureFolder.h"

#include <QStringList>

#include <map>
#include <memory>
#include <vector>

namespace zeph {

/// The folders of all outputs, in one around them. Main thread only.
class PictureFolders {
public:
    /// `kept` is the folder around the pictures that outlive the session; without one there are
    /// none.
    explicit PictureFolders(QString around, QString kept = {})
        : m_around(std::move(around)), m_kept(std::move(kept)) {}

    const QString &around() const { return m_around; }

    /// That of an output by the name of its connector; the same one at every call.
    std::shared_ptr<PictureFolder> of(const QString &connector);

    /// All that were asked for.
    std::vector<std::shared_ptr<PictureFolder>> all() const;

    /// Those that were asked for of other outputs than these.
    std::vector<std::shared_ptr<PictureFolder>> ofOthers(const QStringList &connectors) const;

private:
    QString m_around;
    QString m_kept;
    std::map<QString, std::shared_ptr<PictureFolder>> m_folders; // shared with the writing
};

} // namespace zeph
