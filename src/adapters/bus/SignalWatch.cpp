// SPDX-License-Identifier: MIT
#include "adapters/bus/SignalWatch.h"

namespace zeph {

namespace {

const char *const messageSlot = SLOT(received(QDBusMessage));

} // namespace

SignalWatch::SignalWatch(QDBusConnection bus, BusSignal signal, Handler handler)
    : m_bus(std::move(bus)), m_signal(std::move(signal)), m_handler(std::move(handler)) {
    m_bus.connect(m_signal.service, m_signal.path, m_signal.interface, m_signal.name,
                  m_signal.firstArguments, m_signal.signature, this, messageSlot);
}

SignalWatch::~SignalWatch() {
    m_bus.disconnect(m_signal.service, m_signal.path, m_signal.interface, m_signal.name,
                     m_signal.firstArguments, m_signal.signature, this, messageSlot);
}

void SignalWatch::received(const QDBusMessage &signal) {
    // A slot that takes the whole message is called whatever the arguments are.
    if (signal.signature() == m_signal.signature) {
        m_handler(signal);
    }
}

} // namespace zeph
