#include "simulator/Records.h"

#include "simulator/Text.h"

#include <objbase.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <new>

namespace sim {

Allocator::~Allocator() {
    for (void *block : blocks_)
        CoTaskMemFree(block);
}

void *Allocator::Alloc(size_t bytes) {
    void *block = CoTaskMemAlloc(bytes);
    if (block == nullptr)
        throw std::bad_alloc();
    ZeroMemory(block, bytes);
    blocks_.push_back(block);
    return block;
}

wchar_t *Allocator::String(const std::string &utf8) {
    std::wstring wide = Widen(utf8);
    wchar_t *copy = AllocArray<wchar_t>(wide.size() + 1);
    std::copy(wide.begin(), wide.end(), copy);
    return copy;
}

char *Allocator::AnsiString(const std::string &utf8) {
    std::string ansi = ToAnsi(utf8);
    char *copy = AllocArray<char>(ansi.size() + 1);
    std::copy(ansi.begin(), ansi.end(), copy);
    return copy;
}

Reader::Reader(const Json &object, std::string path, Allocator &allocator, ArrayShapes *shapes)
    : object_(object), path_(std::move(path)), allocator_(allocator), shapes_(shapes) {
    if (!object_.is_object())
        throw ScenarioError(path_ + ": expected an object (a record)");
}

void Reader::TakeShapes() {
    if (shapes_ == nullptr)
        return;
    for (const char *key : {"nullArray", "nullElement"}) {
        const Json *value = Find(key);
        if (value == nullptr)
            continue;
        if (!value->is_string())
            throw ScenarioError(Path(key) + ": expected the key of an array of this response (such as \"disks\")");
        (std::string(key) == "nullArray" ? shapes_->nullArray : shapes_->nullElement) = value->get<std::string>();
    }
}

void Reader::CheckShapes() const {
    if (shapes_ == nullptr)
        return;
    for (const std::string *name : {&shapes_->nullArray, &shapes_->nullElement})
        if (!name->empty() && shapes_->met.count(*name) == 0) {
            std::string known;
            for (const std::string &array : shapes_->met)
                known += (known.empty() ? "" : ", ") + array;
            throw ScenarioError(path_ + ": " + *name + " is no array of this response (arrays here: " +
                                (known.empty() ? std::string("none") : known) + ")");
        }
}

const Json *Reader::Find(const char *name) {
    used_.emplace_back(name);
    auto it = object_.find(name);
    return it == object_.end() ? nullptr : &*it;
}

void Reader::Done() const {
    for (auto it = object_.begin(); it != object_.end(); ++it)
        if (std::find(used_.begin(), used_.end(), it.key()) == used_.end()) {
            std::string known;
            for (const std::string &name : used_)
                known += (known.empty() ? "" : ", ") + name;
            throw ScenarioError(path_ + "." + it.key() + ": no such field (fields here: " + known + ")");
        }
}

void Reader::ExpectArray(const Json &value, const char *name) const {
    if (!value.is_array())
        throw ScenarioError(Path(name) + ": expected an array");
}

unsigned long long Reader::Integer(const Json &value, const std::string &path, long long min, unsigned long long max) {
    if (value.is_boolean())
        return value.get<bool>() ? 1 : 0;
    if (value.is_number_unsigned()) {
        unsigned long long number = value.get<unsigned long long>();
        if (number <= max)
            return number;
    } else if (value.is_number_integer()) {
        long long number = value.get<long long>();
        if (number >= min)
            return static_cast<unsigned long long>(number);
    } else if (value.is_string()) {
        // Hexadecimal is the natural way to write masks and markers such as 0xFFFFFFFF.
        const std::string text = value.get<std::string>();
        char *end = nullptr;
        unsigned long long number = std::strtoull(text.c_str(), &end, 0);
        if (!text.empty() && text[0] != '-' && end != nullptr && *end == '\0' && number <= max)
            return number;
    }
    throw ScenarioError(path + ": expected an integer from " + std::to_string(min) + " to " + std::to_string(max) +
                        " (a number, true/false, or a text such as \"0xFFFFFFFF\")");
}

void Reader::Field(const char *name, wchar_t *&out) {
    if (const Json *value = Find(name)) {
        if (value->is_null())
            return;
        if (!value->is_string())
            throw ScenarioError(Path(name) + ": expected a string or null");
        out = allocator_.String(value->get<std::string>());
    }
}

void Reader::Field(const char *name, char *&out) {
    if (const Json *value = Find(name)) {
        if (value->is_null())
            return;
        if (!value->is_string())
            throw ScenarioError(Path(name) + ": expected a string or null");
        out = allocator_.AnsiString(value->get<std::string>());
    }
}

void Reader::FixedString(const char *name, wchar_t *out, size_t capacity) {
    if (const Json *value = Find(name)) {
        if (!value->is_string())
            throw ScenarioError(Path(name) + ": expected a string");
        std::wstring wide = Widen(value->get<std::string>());
        if (wide.size() >= capacity)
            throw ScenarioError(Path(name) + ": longer than the record's " + std::to_string(capacity - 1) + " characters");
        std::copy(wide.begin(), wide.end(), out);
        out[wide.size()] = L'\0';
    }
}

void Reader::Field(const char *name, FILETIME &out) {
    const Json *value = Find(name);
    if (value == nullptr)
        return;
    ULARGE_INTEGER ticks{};
    if (value->is_string()) {
        SYSTEMTIME utc{};
        unsigned year, month, day, hour, minute, second;
        char zone = 0;
        if (std::sscanf(value->get<std::string>().c_str(), "%4u-%2u-%2uT%2u:%2u:%2u%c", &year, &month, &day, &hour, &minute,
                        &second, &zone) != 7 ||
            zone != 'Z')
            throw ScenarioError(Path(name) + ": expected a UTC time such as \"2024-03-01T14:30:00Z\"");
        utc.wYear = static_cast<WORD>(year);
        utc.wMonth = static_cast<WORD>(month);
        utc.wDay = static_cast<WORD>(day);
        utc.wHour = static_cast<WORD>(hour);
        utc.wMinute = static_cast<WORD>(minute);
        utc.wSecond = static_cast<WORD>(second);
        if (!SystemTimeToFileTime(&utc, &out))
            throw ScenarioError(Path(name) + ": not a valid date and time");
        return;
    }
    ticks.QuadPart = Integer(*value, Path(name), 0, ~0ULL);
    out.dwLowDateTime = ticks.LowPart;
    out.dwHighDateTime = ticks.HighPart;
}

void Reader::Ipv4(const char *name, unsigned long &out) {
    const Json *value = Find(name);
    if (value == nullptr)
        return;
    if (value->is_string()) {
        unsigned a, b, c, d;
        char extra;
        if (std::sscanf(value->get<std::string>().c_str(), "%u.%u.%u.%u%c", &a, &b, &c, &d, &extra) == 4 && a < 256 && b < 256 &&
            c < 256 && d < 256) {
            // Network byte order: the first number is the lowest byte in memory.
            out = a | (b << 8) | (c << 16) | (static_cast<unsigned long>(d) << 24);
            return;
        }
    }
    out = static_cast<unsigned long>(Integer(*value, Path(name), 0, 0xFFFFFFFF));
}

Json LogText(const wchar_t *text) {
    return text == nullptr ? Json(nullptr) : Json(Narrow(text));
}

Json LogAnsi(const char *text) {
    if (text == nullptr)
        return nullptr;
    int length = MultiByteToWideChar(CP_ACP, 0, text, -1, nullptr, 0);
    std::wstring wide(static_cast<size_t>(length), L'\0');
    MultiByteToWideChar(CP_ACP, 0, text, -1, &wide[0], length);
    return Narrow(wide.c_str());
}

Json LogTime(const FILETIME &time) {
    SYSTEMTIME utc;
    if (!FileTimeToSystemTime(&time, &utc))
        return nullptr;
    char text[32];
    std::snprintf(text, sizeof text, "%04u-%02u-%02uT%02u:%02u:%02uZ", utc.wYear, utc.wMonth, utc.wDay, utc.wHour, utc.wMinute,
                  utc.wSecond);
    return text;
}

std::string Ipv4Text(unsigned long networkOrder) {
    char text[20];
    std::snprintf(text, sizeof text, "%lu.%lu.%lu.%lu", networkOrder & 0xFF, (networkOrder >> 8) & 0xFF,
                  (networkOrder >> 16) & 0xFF, (networkOrder >> 24) & 0xFF);
    return text;
}

} // namespace sim
