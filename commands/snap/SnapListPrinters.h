// The rows of the three snapshot listings.
#pragma once

#include "Corvane.h"

#include <string>

// The %Used and %Total columns: "%3d%% (%2d%%)" each, or "--" for both when
// any of the four numbers lies outside -100..100.
void FormatPercentColumns(const SnapshotInfo &snapshot, std::wstring &used, std::wstring &total);
// "MMM d HH:mm" in the machine's local time and the user's locale.
std::wstring FormatCreated(const FILETIME &created);
// The consistency state of a copy of one LUN, in words.
const wchar_t *ConsistencyWord(DWORD consistency);

// One LUN: a table of name, space, time and consistency, or a line saying there is none.
void PrintSnapshotTable(const SnapshotArray &snapshots);
// Several LUNs: a heading per drive, then its failure or its copies.
void PrintDriveSnapshots(const DriveSnapshotsArray &drives);
// One storage-system volume: the names only; nothing at all when there are none.
void PrintVolumeSnapshots(const VolumeSnapshotArray &snapshots);
