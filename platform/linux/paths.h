#pragma once

#include <string>
#include <string_view>

/// The codec between host paths, which are bytes, and the player's path form, which is UTF-8 with
/// `\` as its only separator and without `/`, `*` and control characters. Everything that brings a
/// path into the player or out of it goes through here.
///
/// A host `/` is the player's `\`. A host byte that the player's form has no room for (`\`, `*`, a
/// control character, a byte that is no part of well-formed UTF-8) is the private-use character
/// U+F000 plus the byte. A host name that holds one of those very characters has its three bytes
/// written that way, so that no two host paths ever share a form.
namespace platform {

/// The host path of a path in the player's form. Text that `fromHost` never gives (a stray `/`,
/// bytes that are no UTF-8) passes as it is.
std::string toHost(std::string_view playerPath);

/// The player's form of a host path. `toHost` gives back exactly the same bytes.
std::string fromHost(std::string_view hostPath);

} // namespace platform
