// How the call log records a secret (a password) that a client sent: never as
// text, only as a digest that a test can compare with what it meant to send.
#pragma once

#include "simulator/Records.h"

#include <string>

namespace sim {

// SHA-256 of a byte string, as 64 lower-case hexadecimal digits.
std::string Sha256Hex(const std::string &bytes);

// "sha256:" and the digest of the text's UTF-16LE code units (no terminator),
// exactly as they crossed the interface; null stays null.
Json LogSecret(const wchar_t *text);

} // namespace sim
