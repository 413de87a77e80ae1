// SPDX-License-Identifier: MIT
#pragma once

/// Look-ups of names in this program, without the network: every name under ".test" is this
/// machine, except "missing.test", which nobody knows, and what ends in "stuck.test", of which
/// nothing is heard until the test lets go.
namespace zeph::ScriptedNames {

/// Look-ups that hang right now.
int stuck();

/// Lets those that hang fail, and waits for their end.
void release();

} // namespace zeph::ScriptedNames
