// SPDX-License-Identifier: MIT
#pragma once

#include "ports/SecureStore.h"

namespace zeph {

/// A store whose waits can be ended.
class CancellableStore : public SecureStore {
public:
    /// Ends every wait at once; from now on nothing is available. Any thread.
    virtual void cancelAll() = 0;
};

/// The one function of the plug-in, named `zephMakeSecretStore`; the caller deletes the store.
using MakeSecretStore = CancellableStore *(*)();

} // namespace zeph
