// SPDX-License-Identifier: MIT
#pragma once

#include "services/accounts/IntegrationsStore.h"

#include <utility>

namespace zeph {

/// A removal of an account or an endpoint that nobody took back.
inline void removeForGood(IntegrationsStore &store, QUuid id, SecretDone done = {}) {
    store.removeForNow(id);
    store.settle(id, std::move(done));
}

} // namespace zeph
