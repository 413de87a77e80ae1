// SPDX-License-Identifier: MIT
// What lies in a folder. Tells by `changed` when that is another than it was: an entry came, went or
// was written anew. A folder that is not there is not waited for.
import QtQuick 2.15
import Qt.labs.folderlistmodel 2.15

FolderListModel {
    id: listing

    property string known: "not read yet"

    signal changed

    // The model drops the notice of a change that comes while it reads, and so the folder is read
    // once more when it has been quiet for a while. It reads for another value of `showHidden`, which
    // changes nothing else here: the filters pass no name with a leading dot.
    readonly property Timer again: Timer {
        interval: 300
        onTriggered: listing.showHidden = !listing.showHidden
    }

    function look() {
        let entries = "";
        for (let i = 0; i < count; ++i)
            entries += get(i, "fileName") + "/" + get(i, "fileModified").getTime() + "/";
        if (entries === known)
            return;
        known = entries;
        again.restart();
        changed();
    }

    sortField: FolderListModel.Name
    // An entry that comes as another goes leaves the count as it is.
    onCountChanged: Qt.callLater(look)
    onDataChanged: Qt.callLater(look)
    onModelReset: Qt.callLater(look)
    onRowsInserted: Qt.callLater(look)
}
