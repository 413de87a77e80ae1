// SPDX-License-Identifier: MIT
// Shows the pictures that Tavi writes for the output that this desktop lies on: the newest whole
// one, "f-<number>", and above it the parts that came since, "p-<number>-<x>-<y>". What is shown
// stays when its file goes, and when nobody writes any more. Until there is any, as in a session in
// which Tavi has not been started, it is the last one of an earlier session.
import QtQuick 2.15
import QtQuick.Window 2.15

Rectangle {
    id: root

    // More are never written to go with one whole picture.
    readonly property int mostPatches: 48

    // Null while Plasma takes it away.
    readonly property var settings: wallpaper ? wallpaper.configuration : null
    readonly property string folder: settings ? settings.Folder || "" : ""
    readonly property string kept: settings ? settings.Kept || "" : ""
    readonly property string start: settings ? settings.Start || "" : ""
    readonly property string output: (Screen.name || "_").replace(/[^A-Za-z0-9_-]/g, "_")

    property Image shown: first
    property real wanted: 0      // number of the whole picture that is shown or being read
    property real wantedSince: 0 // when that was written, in milliseconds of the Unix epoch
    property int generation: 0   // counts the whole pictures that were read
    property real lastPatch: 0   // of this generation

    // Until there is any picture.
    color: "#0d0f1f"
    clip: true

    // A folder that is not there is not waited for by the model.
    onFolderChanged: Qt.callLater(look)
    onStartChanged: Qt.callLater(look)
    onOutputChanged: {
        wanted = 0; // each output has numbers of its own
        Qt.callLater(look);
    }
    Component.onCompleted: look()

    function look() {
        watch.active = false;
        watch.active = folder !== "";
    }

    function take(listed) {
        let whole = null;
        const parts = [];
        for (let i = 0; i < listed.count; ++i) {
            const name = listed.get(i, "fileName");
            const found = /^([fp])-(\d+)(?:-(\d+)-(\d+))?\.(?:bmp|png)$/.exec(name);
            const since = listed.get(i, "fileModified").getTime();
            if (!found || isNaN(since)) // not ours, or gone while it was listed
                continue;
            const picture = {
                number: Number(found[2]), left: Number(found[3]), top: Number(found[4]),
                since: since,
                address: String(listed.folder) + "/" + name
            };
            if (found[1] === "p")
                parts.push(picture);
            else if (whole === null || picture.number > whole.number)
                whole = picture;
        }
        if (whole === null)
            return;
        if (whole.number !== wanted || whole.since !== wantedSince) {
            wanted = whole.number;
            wantedSince = whole.since;
            lastPatch = 0;
            ++generation;
            (shown === first ? second : first).load(whole.address);
        }
        for (const part of parts) {
            if (part.number > whole.number && part.number > lastPatch) {
                lastPatch = part.number;
                part.generation = generation;
                patches.append(part);
            }
        }
        while (patches.count > mostPatches)
            patches.remove(0);
    }

    // The one shown goes once the next is there, since an image that loads is blank.
    function ready(image) {
        const last = shown;
        shown = image;
        if (last !== image)
            last.source = "";
        for (let i = patches.count - 1; i >= 0; --i) {
            if (patches.get(i).generation < image.generation)
                patches.remove(i);
        }
    }

    Image {
        anchors.fill: parent
        asynchronous: true
        cache: false
        fillMode: Image.PreserveAspectCrop
        source: root.shown.generation === 0 && root.kept !== "" ? root.kept + "/" + root.output : ""
    }

    component Whole: Image {
        property int generation: 0 // 0 until it was read once

        anchors.fill: parent
        asynchronous: true
        cache: false
        z: root.shown === this ? 1 : 0
        onStatusChanged: if (status === Image.Ready && source != "") root.ready(this)

        function load(address) {
            generation = root.generation;
            source = ""; // else one that could not be read is not read again
            source = address;
        }
    }

    Whole { id: first }
    Whole { id: second }

    Item {
        readonly property real enlarged: root.width / Math.max(1, root.shown.implicitWidth)

        id: above
        anchors.fill: parent
        z: 2

        Repeater {
            model: ListModel { id: patches }

            Image {
                required property var model

                asynchronous: true
                cache: false
                source: model.address
                visible: model.generation === root.shown.generation
                x: model.left * above.enlarged
                y: model.top * above.enlarged
                width: implicitWidth * above.enlarged
                height: implicitHeight * above.enlarged
            }
        }
    }

    // The folder around is there when it is told, that of an output comes with the output.
    Loader {
        id: watch
        active: false

        sourceComponent: Item {
            FolderListing {
                id: outputs
                path: root.folder
                names: new RegExp("^" + root.output + "$")
                showFiles: false
                // The last listing may watch a folder that was removed and made anew since.
                onDataChanged: Qt.callLater(pictures.begin)
                onChanged: pictures.begin()
            }
            Loader {
                id: pictures

                function begin() {
                    active = false;
                    active = outputs.known !== "";
                }

                active: false

                sourceComponent: Item {
                    FolderListing {
                        path: root.folder + "/" + root.output
                        names: /^[fp]-\d+/
                        showDirs: false
                        onChanged: root.take(this)
                    }
                }
            }
        }
    }
}
