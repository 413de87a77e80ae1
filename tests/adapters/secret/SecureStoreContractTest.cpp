// SPDX-License-Identifier: MIT
#include "support/SecureStoreContract.h"
#include "adapters/secret/Elsewhere.h"
#include "adapters/secret/FakePrompter.h"
#include "adapters/secret/SecretServer.h"
#include "adapters/secret/SecretServiceStore.h"
#include "support/FakeSecureStore.h"

namespace zeph {

namespace {

/// The one that all other tests use.
struct FakeMachine {
    template <typename Work>
    void run(Work work) {
        work();
    }
    void lock() { store.answer(SecretOutcome::refused); }
    void unlock() { store.answer(SecretOutcome::done); }
    void end() { store.answer(SecretOutcome::unavailable); }

    FakeSecureStore store;
};

/// A real GNOME Keyring.
struct KeyringMachine {
    KeyringMachine() { server.start(); }

    template <typename Work>
    void run(Work work) {
        elsewhere(work);
    }
    void lock() {
        server.kill();
        server.startLocked();
    }
    void unlock() {
        server.kill();
        server.start();
    }
    void end() { server.kill(); }

    SecretServer server;
    FakePrompter prompter{server.bus(), FakePrompter::Person::refuses};
    SecretServiceStore store;
};

INSTANTIATE_TYPED_TEST_SUITE_P(Fake, SecureStoreContract, FakeMachine);
INSTANTIATE_TYPED_TEST_SUITE_P(Keyring, SecureStoreContract, KeyringMachine);

} // namespace

} // namespace zeph
