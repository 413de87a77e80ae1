// SPDX-License-Identifier: MIT
#pragma once

#include "X11Fixture.h"

#include "adapters/session/x11/X11InputEvents.h"
#include "settings/Consents.h"
#include "support/FakeUserDefaults.h"
#include "support/ManualClock.h"

#include <algorithm>

namespace zeph {

/// A display with a tap on its input, and what the tap told.
class InputEventsTest : public X11Test {
protected:
    explicit InputEventsTest(const XvfbSession::Options &options = {}) : X11Test(options) {
        screens.screens = {wholeScreen()};
        consents.input.set(ConsentState::granted);
    }

    std::unique_ptr<InputEventTap> startTap() { return startTap(input, *connection, events); }

    /// A tap of `source` that tells to `told`.
    static std::unique_ptr<InputEventTap> startTap(InputEvents &source,
                                                   const X11Connection &itsConnection,
                                                   std::vector<InputEvent> &told) {
        auto tap = source.makeTap([&told](const InputEvent &event) { told.push_back(event); });
        if (tap) {
            tap->enable();
            // The server has to have taken note before the test types.
            itsConnection.intern("ZEPH_TEST");
        }
        return tap;
    }

    /// A connection whose taps can't record: that takes a second one, which is impossible when
    /// the display is not found.
    std::unique_ptr<X11Connection> openWithoutRecording() const {
        qputenv("DISPLAY", session.display());
        auto single = X11Connection::open();
        qputenv("DISPLAY", ":999999");
        return single;
    }

    QByteArray xdotool(const QStringList &arguments) const {
        return session.run(QStringList{QStringLiteral("xdotool")} + arguments);
    }

    static std::ptrdiff_t countIn(const std::vector<InputEvent> &told, InputEventKind kind) {
        return std::count_if(told.begin(), told.end(),
                             [kind](const InputEvent &event) { return event.kind == kind; });
    }
    std::ptrdiff_t count(InputEventKind kind) const { return countIn(events, kind); }

    bool waitForCount(InputEventKind kind, std::ptrdiff_t expected) {
        return waitUntil([&] { return count(kind) >= expected; });
    }

    /// A window that takes the keys; the server passes on recorded ones when it has to talk.
    void openTypewriter() {
        const auto window = client->show({.geometry = {0, 0, 1280, 800}});
        ASSERT_NE(window, 0U);
        xdotool({QStringLiteral("mousemove"), QStringLiteral("100"), QStringLiteral("100")});
    }

    /// Lets everything arrive that the server has to tell of the input so far.
    void settle(const X11Connection &of) {
        client->focus(); // the server has to talk
        of.intern("ZEPH_TEST");
        int turns = 0;
        waitUntil([&] { return ++turns > 20; });
    }
    void settle() { settle(*connection); }

    static QStringList relativeMoves(int times, const QString &dx, const QString &dy) {
        QStringList commands;
        for (int i = 0; i < times; ++i) {
            commands << QStringLiteral("mousemove_relative") << QStringLiteral("--") << dx << dy;
        }
        return commands;
    }

    FakeScreens screens;
    ManualClock clock;
    FakeUserDefaults defaults;
    Consents consents{defaults};
    X11InputEvents input{*connection, screens, consents.input};
    std::vector<InputEvent> events;
};

/// Another program that listens to the same input, with a consent that always stands. What it has
/// heard, the tap under test has had the occasion to hear.
class InputWitness {
public:
    InputWitness(const QByteArray &display, const Screens &screens)
        : m_connection(X11Connection::open(display)), m_input(*m_connection, screens, m_consent) {
        m_consent.set(ConsentState::granted);
        m_tap = m_input.makeTap([this](const InputEvent &event) { m_heard.push_back(event); });
        m_tap->enable();
        m_connection->intern("ZEPH_TEST");
    }

    /// Waits until it has heard that many events of the kind.
    bool hears(InputEventKind kind, std::ptrdiff_t expected) const {
        return waitUntil([&] {
            return std::count_if(m_heard.begin(), m_heard.end(), [kind](const InputEvent &event) {
                       return event.kind == kind;
                   }) >= expected;
        });
    }

private:
    std::unique_ptr<X11Connection> m_connection;
    FakeUserDefaults m_defaults;
    StoredConsent m_consent{m_defaults, QStringLiteral("witness")};
    X11InputEvents m_input;
    std::vector<InputEvent> m_heard;
    std::unique_ptr<InputEventTap> m_tap;
};

} // namespace zeph
