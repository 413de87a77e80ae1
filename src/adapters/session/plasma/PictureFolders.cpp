// SPDX-License-Identifier: MIT
#include "adapters/session/plasma/PictureFolders.h"

#include "adapters/session/plasma/PictureNames.h"

namespace zeph {

std::shared_ptr<PictureFolder> PictureFolders::of(const QString &connector) {
    const QString name = pictureFolderName(connector);
    std::shared_ptr<PictureFolder> &folder = m_folders[name];
    if (!folder) {
        folder = std::make_shared<PictureFolder>(
            m_around + u'/' + name, m_kept.isEmpty() ? QString() : m_kept + u'/' + name);
    }
    return folder;
}

std::vector<std::shared_ptr<PictureFolder>> PictureFolders::all() const {
    return ofOthers({});
}

std::vector<std::shared_ptr<PictureFolder>>
PictureFolders::ofOthers(const QStringList &connectors) const {
    QStringList names;
    for (const QString &connector : connectors) {
        names.append(pictureFolderName(connector));
    }
    std::vector<std::shared_ptr<PictureFolder>> others;
    for (const auto &[name, folder] : m_folders) {
        if (!names.contains(name)) {
            others.push_back(folder);
        }
    }
    return others;
}

} // namespace zeph
