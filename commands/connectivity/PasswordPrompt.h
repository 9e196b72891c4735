// The password prompt of transport_protocol set: the console is read one key
// at a time without echo, and every key is answered with a "*".
#pragma once

#include "front_end/Secret.h"

#include <cwchar>

// One key read without echo; WEOF when there is no console or input ended.
using KeyReader = wint_t (*)();
void SetKeyReaderForTesting(KeyReader reader); // null restores the console's own (_getwch)

// Prints "Type Password for the user:" and reads keys until Enter (13). A key
// read that gives WEOF ends the input as Enter does, so a run without a
// console never waits. Every other key, Backspace included, is kept as typed.
SecretText ReadPassword();
