// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

#include <optional>
#include <vector>

namespace zeph {

/// Something that a program shows to assistive tools.
struct AccessibleObject {
    QString sender; ///< name of the program on their bus
    QString path;

    bool operator==(const AccessibleObject &) const = default;
};

/// Whether a role, as their interface numbers it, is that of a window.
bool isWindowRole(quint32 role);

/// Which window is active, from what programs say of their objects. Not only windows say that they
/// are active: cells of lists do with each press of an arrow key. What an object is has to be
/// asked, and is asked only where it matters. A program may speak of two windows in either order,
/// and two programs too.
class ActiveObject {
public:
    enum class News {
        none,
        gained, ///< the active window belongs to another program than before
        lost,   ///< the last one is no longer active, and none that tells follows
    };

    struct Step {
        News news = News::none;
        std::vector<AccessibleObject> questions = {}; ///< whose roles are to be asked

        bool operator==(const Step &) const = default;
    };

    /// An object said that it is active, or no longer.
    Step told(const AccessibleObject &object, bool isActive);

    /// The answer to one of the questions; false as well when there is none.
    News answered(const AccessibleObject &object, bool isWindow);

    /// A program has gone, without a word of its windows.
    News ended(const QString &sender);

    /// The program of the active window; empty when there is none.
    QString sender() const { return m_window ? m_window->sender : QString(); }

private:
    Step gained(const AccessibleObject &object);
    Step left();
    News lost();

    std::optional<AccessibleObject> m_window;
    bool m_isLeft = false;                  // it said so, while questions are open
    std::vector<AccessibleObject> m_claims; // of the same program, oldest first
    std::vector<AccessibleObject> m_asked;
};

} // namespace zeph
