// SPDX-License-Identifier: MIT
#pragma once

#include "base/ChangePublisher.h"
#include "ports/Port.h"

#include <QPointF>

#include <functional>
#include <memory>

namespace zeph {

/// What happened, never what was typed.
enum class InputEventKind {
    leftMouseDown,
    rightMouseDown,
    mouseMoved,
    leftMouseDragged,
    rightMouseDragged,
    keyDown,
    tapDisabledByTimeout,
    tapDisabledByUserInput,
};

/// One event of the tap. `location` is in global points and set for pointer motion only.
struct InputEvent {
    InputEventKind kind = InputEventKind::keyDown;
    QPointF location;
};

/// A listen-only stream of input events; its end stops the stream. While the user's consent is
/// withdrawn it is off, and it is on again as soon as the consent is back.
class InputEventTap : public Port {
public:
    /// Turns the stream on, or on again after a disabled notice.
    virtual void enable() = 0;
};

/// The user's input, as times and positions only.
class InputEvents : public Port {
public:
    /// Seconds since the last input event of any kind; 0 when the system can't tell.
    virtual double secondsSinceLastEvent() const = 0;

    /// Whether the last input event of any kind is more than `seconds` ago. Cheaper than the
    /// number itself where the system has to be asked for that.
    virtual bool isQuietForMoreThan(double seconds) const {
        return seconds < secondsSinceLastEvent();
    }

    /// True when the user consented to input timing. Without it no tap is made.
    virtual bool isTrusted() const = 0;

    /// Calls `handler` on the main thread after `isTrusted` may have changed.
    [[nodiscard]] virtual Subscription subscribeToTrust(std::function<void()> handler) = 0;

    /// Whether this desktop tells a program of the keys that are pressed in others, so that a tap
    /// can be had with the user's consent. The same for as long as the session lasts.
    virtual bool canCountKeys() const { return true; }

    /// Whether the user's consent also lets the application in front be known, on a desktop that
    /// tells that to assistive tools alone.
    virtual bool consentTellsFront() const { return false; }

    /// Makes a stream, off at first, that calls `handler` on the main thread, or answers null when
    /// the permission or the system's facility is missing.
    virtual std::unique_ptr<InputEventTap>
    makeTap(std::function<void(const InputEvent &)> handler) = 0;
};

} // namespace zeph
