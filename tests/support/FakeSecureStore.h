// SPDX-License-Identifier: MIT
#pragma once

#include "ports/SecureStore.h"

#include <QStringList>

#include <algorithm>
#include <functional>
#include <mutex>
#include <utility>

namespace zeph {

/// A secure store in memory that writes down every call, as "add service account".
class FakeSecureStore : public SecureStore {
public:
    SecretOutcome add(const QString &service, const QString &account,
                      const QByteArray &data) override {
        begin(QStringLiteral("add"), service, account);
        const std::lock_guard guard(m_mutex);
        if (m_outcome == SecretOutcome::done) {
            std::erase_if(m_entries, matcher(service, account));
            m_entries.push_back({service, {account, data}});
        }
        return m_outcome;
    }

    SecretAnswer<std::optional<QByteArray>> copy(const QString &service,
                                                 const QString &account) override {
        begin(QStringLiteral("copy"), service, account);
        const std::lock_guard guard(m_mutex);
        const auto found =
            std::find_if(m_entries.begin(), m_entries.end(), matcher(service, account));
        const auto outcome = m_isDismissed ? SecretOutcome::refused : m_outcome;
        const bool isFound = outcome == SecretOutcome::done && found != m_entries.end();
        return {outcome, isFound ? found->item.data : std::nullopt};
    }

    SecretAnswer<std::vector<SecureItem>> copyAll(const QString &service) override {
        begin(QStringLiteral("copyAll"), service, {});
        const std::lock_guard guard(m_mutex);
        SecretAnswer<std::vector<SecureItem>> answer{m_outcome};
        for (const Entry &entry : m_entries) {
            if (answer.isDone() && entry.service == service) {
                answer.value.push_back(entry.item);
            }
        }
        return answer;
    }

    SecretOutcome remove(const QString &service, const QString &account) override {
        begin(QStringLiteral("remove"), service, account);
        const std::lock_guard guard(m_mutex);
        if (m_outcome == SecretOutcome::done) {
            std::erase_if(m_entries, matcher(service, account));
        }
        return m_outcome;
    }

    void askAgain() override {
        const std::lock_guard guard(m_mutex);
        m_isDismissed = false;
    }

    /// A person closed the prompt: reads are refused until `askAgain`, whatever is to be answered.
    void dismiss() {
        const std::lock_guard guard(m_mutex);
        m_isDismissed = true;
    }

    /// Puts an entry there as another program would.
    void put(const QString &service, SecureItem item) {
        const std::lock_guard guard(m_mutex);
        m_entries.push_back({service, std::move(item)});
    }

    /// From now on every operation ends like this.
    void answer(SecretOutcome outcome) {
        const std::lock_guard guard(m_mutex);
        m_outcome = outcome;
    }

    /// Called at the begin of every operation, on its thread, outside of any lock.
    void setHook(std::function<void(const QString &call)> hook) { m_hook = std::move(hook); }

    /// The calls so far; they are forgotten by it.
    QStringList takeCalls() {
        const std::lock_guard guard(m_mutex);
        return std::exchange(m_calls, {});
    }

    /// Every entry, as "service account=data".
    QStringList entries() const {
        const std::lock_guard guard(m_mutex);
        QStringList texts;
        for (const Entry &entry : m_entries) {
            texts.append(entry.service + u' ' + entry.item.account.value_or(QString()) + u'=' +
                         QString::fromUtf8(entry.item.data.value_or(QByteArray())));
        }
        return texts;
    }

private:
    struct Entry {
        QString service;
        SecureItem item;
    };

    static std::function<bool(const Entry &)> matcher(const QString &service,
                                                      const QString &account) {
        return [service, account](const Entry &entry) {
            return entry.service == service && entry.item.account == account;
        };
    }

    void begin(const QString &operation, const QString &service, const QString &account) {
        const QString call = (operation + u' ' + service + u' ' + account).trimmed();
        {
            const std::lock_guard guard(m_mutex);
            m_calls.append(call);
        }
        if (m_hook) {
            m_hook(call);
        }
    }

    mutable std::mutex m_mutex;
    std::vector<Entry> m_entries;
    QStringList m_calls;
    std::function<void(const QString &)> m_hook;
    SecretOutcome m_outcome = SecretOutcome::done;
    bool m_isDismissed = false;
};

} // namespace zeph
