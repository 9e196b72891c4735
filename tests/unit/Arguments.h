// The words of a command line as the entry gets them from argv: writable
// strings and a null-terminated array of pointers to them.
#pragma once

#include <string>
#include <vector>

struct Arguments {
    explicit Arguments(std::vector<std::wstring> words) : storage(std::move(words)) {
        for (std::wstring &w : storage)
            pointers.push_back(&w[0]);
        pointers.push_back(nullptr);
    }
    std::vector<std::wstring> storage;
    std::vector<wchar_t *> pointers;
};
