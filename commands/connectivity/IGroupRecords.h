// The initiator-group records exchanged with IIGroup.
#pragma once

#include "Corvane.h"
#include "service/OwnedRecord.h"

#include <cwchar>
#include <string>

void FreeIGroupList(IGroupList &list);
using OwnedIGroupList = OwnedRecord<IGroupList, FreeIGroupList>;

// A fixed-size text field as text; the service may fill it to the last character.
template <size_t N> std::wstring FixedText(const wchar_t (&field)[N]) {
    return std::wstring(field, wcsnlen(field, N));
}
