// SPDX-License-Identifier: MIT
#pragma once

#include "support/CompositorThread.h"

#include <QImage>
#include <QPoint>
#include <QSize>

#include <functional>
#include <memory>
#include <optional>
#include <vector>

namespace zeph {

/// What the fake compositor has at a connector.
struct FakeOutput {
    QByteArray name = "DP-1";
    QByteArray make = "Acme";
    QByteArray model = "P27";
    QByteArray description = "Acme P27 XY12 (DP-1)";
    QSize mode = {400, 300}; ///< empty for an output without one
    QPoint position = {};
    int transform = 0;
    int scale = 1;
    QSize points = {400, 300};
};

/// A layer surface as the compositor has it.
struct FakeLayerState {
    int number = 0; ///< from 1, in the order of their making
    QByteArray output;
    QByteArray scope;
    std::uint32_t layer = 0;
    std::uint32_t anchor = 0;
    int exclusiveZone = 0;
    std::uint32_t keyboard = 99;
    bool takesInput = true;
    QImage shown;             ///< what is on the display, damage obeyed; null while unmapped
    std::uint32_t format = 0; ///< of its buffer
    int scale = 1;
    std::optional<QSize> destination;
    std::vector<std::uint32_t> acknowledged; ///< serials, in order
    std::vector<std::uint32_t> sent;
    int commits = 0;
    int attaches = 0;
};

/// A compositor with layers that behaves as a test says. As strict as real ones: a surface with
/// pixels before its size is acknowledged, an unknown serial or pixels that the scale does not
/// divide end the connection.
class FakeCompositor {
public:
    enum class Release { atOnce, whenReplaced, never };

    struct Options {
        std::uint32_t compositorVersion = 4;
        std::uint32_t outputVersion = 4;
        std::uint32_t exactVersion = 3; ///< of xdg-output; 0 for none
        std::uint32_t shellVersion = 4; ///< of the layers; 0 for none
        bool hasViewporter = false;
        Release release = Release::atOnce;
        bool hasOrder = false;          ///< the user's order of outputs
        bool configuresByItself = true; ///< answers a new layer with the output's size
        std::vector<FakeOutput> outputs = {FakeOutput()};
    };

    explicit FakeCompositor(const Options &options);
    FakeCompositor() : FakeCompositor(Options()) {}
    ~FakeCompositor();
    FakeCompositor(const FakeCompositor &) = delete;
    FakeCompositor &operator=(const FakeCompositor &) = delete;

    QByteArray socket() const { return m_thread.socket(); }
    CompositorThread &thread() { return m_thread; }

    /// All layer surfaces that there are, in the order of their making.
    std::vector<FakeLayerState> layers();
    FakeLayerState layer() { return layers().empty() ? FakeLayerState() : layers().back(); }

    /// Buffers that were attached once and are not ended yet.
    int liveBuffers();

    void addOutput(const FakeOutput &output);
    /// Takes the output away, and with it the layer surfaces on it unless `quietly`.
    void removeOutput(const QByteArray &name, bool quietly = false);
    /// Tells what has changed of the output of that name.
    void changeOutput(const FakeOutput &output);

    /// Tells the user's order of outputs from now on, to those who asked too.
    void order(const std::vector<QByteArray> &names);

    /// To the newest layer surface.
    void configure(QSize size, int times = 1);
    void close();

    /// Sends what is held, once.
    void releaseBuffers();

    /// Ends the connection of the client with a complaint.
    void complain();

private:
    struct State;

    std::unique_ptr<State> m_state; // the thread's own
    CompositorThread m_thread;
};

} // namespace zeph
