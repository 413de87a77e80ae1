// SPDX-License-Identifier: MIT
#include "adapters/secret/SecretPlugin.h"

#include "adapters/secret/SecretServiceStore.h"

extern "C" __attribute__((visibility("default"))) zeph::CancellableStore *zephMakeSecretStore() {
    return new zeph::SecretServiceStore;
}
