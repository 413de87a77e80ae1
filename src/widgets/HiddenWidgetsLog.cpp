// SPDX-License-Identifier: MIT
#include "widgets/HiddenWidgetsLog.h"

#include "base/Log.h"

#include <utility>

using namespace Qt::StringLiterals;

namespace zeph {

void HiddenWidgetsLog::update(const Reason &reasonOf) {
    if (!logWidgets().isInfoEnabled()) {
        m_told.clear();
        return;
    }
    for (const WidgetKind kind : allWidgetKinds()) {
        auto reason = reasonOf(kind);
        const auto told = m_told.find(kind);
        if (told != m_told.end() && told->second == reason) {
            continue;
        }
        qCInfo(logWidgets).noquote() << rawValue(kind) + u": "_s + reason.value_or(u"shown"_s);
        m_told[kind] = std::move(reason);
    }
}

} // namespace zeph
