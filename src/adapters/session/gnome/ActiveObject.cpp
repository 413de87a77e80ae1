// SPDX-License-Identifier: MIT
#include "adapters/session/gnome/ActiveObject.h"

#include <algorithm>
#include <array>
#include <utility>

namespace zeph {

namespace {

// Numbers of the accessibility interface: alert, chooser of colours, frame of the desktop, dialog,
// choosers of files and of fonts, frame, window, and the application where it is its only window.
constexpr std::array<quint32, 9> kWindowRoles{2, 9, 14, 16, 19, 22, 23, 69, 75};

// A cell that goes says nothing any more.
constexpr std::size_t kMostClaims = 4;

bool contains(const std::vector<AccessibleObject> &objects, const AccessibleObject &object) {
    return std::find(objects.begin(), objects.end(), object) != objects.end();
}

} // namespace

bool isWindowRole(quint32 role) {
    return std::find(kWindowRoles.begin(), kWindowRoles.end(), role) != kWindowRoles.end();
}

ActiveObject::Step ActiveObject::told(const AccessibleObject &object, bool isActive) {
    if (isActive) {
        return gained(object);
    }
    std::erase(m_claims, object);
    std::erase(m_asked, object);
    if (object == m_window) {
        return left();
    }
    // That of another one may come after the word of its successor.
    return {m_isLeft && m_asked.empty() ? lost() : News::none};
}

ActiveObject::Step ActiveObject::gained(const AccessibleObject &object) {
    if (object == m_window) {
        m_isLeft = false;
        m_asked.clear();
        return {};
    }
    if (m_window && !m_isLeft && object.sender == m_window->sender) {
        // The application is the same either way: asked for if its window is left.
        std::erase(m_claims, object);
        m_claims.push_back(object);
        if (m_claims.size() > kMostClaims) {
            m_claims.erase(m_claims.begin());
        }
        return {};
    }
    if (contains(m_asked, object)) {
        return {};
    }
    m_asked.push_back(object);
    return {News::none, {object}};
}

ActiveObject::Step ActiveObject::left() {
    const auto questions = std::exchange(m_claims, {});
    m_asked.insert(m_asked.end(), questions.begin(), questions.end());
    if (m_asked.empty()) {
        return {lost()};
    }
    m_isLeft = true;
    return {News::none, questions};
}

ActiveObject::News ActiveObject::answered(const AccessibleObject &object, bool isWindow) {
    if (std::erase(m_asked, object) == 0) {
        return News::none; // it is not active any more
    }
    if (!isWindow) {
        return m_isLeft && m_asked.empty() ? lost() : News::none;
    }
    const bool isOther = sender() != object.sender;
    m_window = object;
    m_isLeft = false;
    m_claims.clear();
    return isOther ? News::gained : News::none;
}

ActiveObject::News ActiveObject::ended(const QString &sender) {
    std::erase_if(m_asked, [&](const AccessibleObject &one) { return one.sender == sender; });
    const bool isEnd = sender == this->sender() || (m_isLeft && m_asked.empty());
    return isEnd ? lost() : News::none;
}

ActiveObject::News ActiveObject::lost() {
    if (!std::exchange(m_window, std::nullopt)) {
        return News::none;
    }
    m_isLeft = false;
    m_claims.clear();
    return News::lost;
}

} // namespace zeph
