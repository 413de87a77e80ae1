// SPDX-License-Identifier: MIT
// The entries of a folder whose names match. Tells by `changed` when one of them came, went or was
// written anew. A folder that is not there is not waited for.
import QtQuick 2.15
import Qt.labs.folderlistmodel 2.15

FolderListModel {
    id: listing

    property string path
    property var names: /^$/
    property string known: "not read yet"

    signal changed

    // The model drops the notice of a change that comes while it reads, and so the folder is read
    // once more when it has been quiet for a while. Another value of `showHidden` makes it read.
    readonly property Timer again: Timer {
        interval: 300
        onTriggered: listing.showHidden = !listing.showHidden
    }

    function look() {
        let entries = "";
        for (let i = 0; i < count; ++i) {
            const name = get(i, "fileName");
            // The time of a folder is left out: each file that is written into it changes that.
            if (names.test(name))
                entries += name + (showFiles ? get(i, "fileModified").getTime() : "") + "/";
        }
        if (entries === known)
            return;
        known = entries;
        again.restart();
        changed();
    }

    folder: path
    // For one that is not there the model has taken the folder that this program was started in.
    Component.onCompleted: if (String(folder) !== path) folder = path
    sortField: FolderListModel.Name
    // An entry that comes as another goes leaves the count as it is.
    onCountChanged: Qt.callLater(look)
    onDataChanged: Qt.callLater(look)
    onModelReset: Qt.callLater(look)
    onRowsInserted: Qt.callLater(look)
}
