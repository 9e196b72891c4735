// Pure parsers of switch values. They never print and never throw: they give
// a success flag or the invalid marker, and the calling handler reports.
#pragma once

#include <cstdint>
#include <string>

constexpr unsigned kInvalidValue = 0xFFFFFFFFu;

// True when the text holds none of / \ * : ? " < > | and space.
bool IsValidName(const wchar_t *text);

// Sizes with an optional KB/MB/GB/TB suffix (any case), in bytes.
bool ParseSize(const wchar_t *text, uint64_t &bytes);
// Sizes with an optional MB/GB/TB suffix (any case), in megabytes.
bool ParseSizeMB(const wchar_t *text, uint64_t &megabytes);
// "%dTB", "%dGB" or "%dMB": the largest unit that divides the size exactly.
std::wstring FormatSize(uint64_t bytes);

// "true"/"enabled"/"1" give 1, "false"/"disabled"/"0" give 0, else kInvalidValue.
unsigned ParseBoolean(const wchar_t *text);
// 0..100, else kInvalidValue.
unsigned ParsePercentage(const wchar_t *text);

// LUN path characters: the slash form when the text starts with "/vol/", the
// back-slash form otherwise.
bool HasValidPathCharacters(const wchar_t *text);

// "0x<hex>-0x<hex>".
bool ParseIdentifierPair(const wchar_t *text, uint64_t &first, uint64_t &second);

// An IPv4 address in dotted form: exactly four decimal parts of 0 to 255,
// separated by single dots, and nothing else (no blanks, signs, leading zeros
// or shortened forms such as "10.1").
bool IsValidIpv4Address(const wchar_t *text);

bool ParseApplicationName(const wchar_t *text, unsigned &code);
bool ParseLogLevel(const wchar_t *text, unsigned &level);
