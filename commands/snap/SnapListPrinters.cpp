#include "commands/snap/SnapListPrinters.h"

#include "front_end/Console.h"

namespace {

bool WithinHundred(LONG value) {
    return value >= -100 && value <= 100;
}

constexpr int kTimeChars = 80;

} // namespace

void FormatPercentColumns(const SnapshotInfo &snapshot, std::wstring &used, std::wstring &total) {
    if (WithinHundred(snapshot.nUsedPercent) && WithinHundred(snapshot.nUsedInnerPercent) &&
        WithinHundred(snapshot.nTotalPercent) && WithinHundred(snapshot.nTotalInnerPercent)) {
        used =
            FormatText(L"%3d%% (%2d%%)", static_cast<int>(snapshot.nUsedPercent), static_cast<int>(snapshot.nUsedInnerPercent));
        total =
            FormatText(L"%3d%% (%2d%%)", static_cast<int>(snapshot.nTotalPercent), static_cast<int>(snapshot.nTotalInnerPercent));
    } else {
        used = L"--";
        total = L"--";
    }
}

std::wstring FormatCreated(const FILETIME &created) {
    // A time that cannot be converted leaves both parts empty.
    wchar_t date[kTimeChars] = {};
    wchar_t time[kTimeChars] = {};
    SYSTEMTIME utc = {};
    SYSTEMTIME local = {};
    // The time zone's own rules for that date, not today's offset.
    if (FileTimeToSystemTime(&created, &utc) && SystemTimeToTzSpecificLocalTime(nullptr, &utc, &local)) {
        if (GetDateFormatW(LOCALE_USER_DEFAULT, 0, &local, L"MMM d", date, kTimeChars) == 0)
            date[0] = L'\0';
        if (GetTimeFormatW(LOCALE_USER_DEFAULT, TIME_NOSECONDS | TIME_FORCE24HOURFORMAT, &local, L"HH:mm", time, kTimeChars) == 0)
            time[0] = L'\0';
    }
    return std::wstring(date) + L" " + time;
}

const wchar_t *ConsistencyWord(DWORD consistency) {
    switch (consistency) {
    case 0:
        return L"Inconsistent snapshot copy";
    case 1:
        return L"Consistent snapshot copy";
    case 2:
        return L"CVD-type converted inconsistent snapshot copy";
    case 3:
        return L"CVD-type converted consistent snapshot copy";
    case 4:
        return L"LUN does not exist in snapshot copy";
    default:
        return L"Inappropriate disk in snapshot copy";
    }
}

void PrintSnapshotTable(const SnapshotArray &snapshots) {
    if (snapshots.dwCount == 0 || snapshots.pSnapshots == nullptr) {
        Print(L"No Disk Snapshot Copies exist \n");
        return;
    }
    Print(L"Disk Snapshot Copy Name\t\t%%Used\t\t%%Total\t\tCreated\t\t\tSnapshot Copy Status \n");
    Print(L"-----------------------\t\t----- \t\t-----\t\t----------\t\t--------------------- \n");
    for (DWORD i = 0; i < snapshots.dwCount; ++i) {
        const SnapshotInfo &snapshot = snapshots.pSnapshots[i];
        std::wstring used;
        std::wstring total;
        FormatPercentColumns(snapshot, used, total);
        Print(L"%ls\t\t%ls\t\t%ls\t\t%ls\t\t%ls \n", OrEmpty(snapshot.wszName), used.c_str(), total.c_str(),
              FormatCreated(snapshot.ftCreated).c_str(), ConsistencyWord(snapshot.dwConsistency));
    }
}

void PrintDriveSnapshots(const DriveSnapshotsArray &drives) {
    for (DWORD i = 0; drives.pDrives != nullptr && i < drives.dwCount; ++i) {
        const DriveSnapshots &drive = drives.pDrives[i];
        Print(L"\n\n=== Drive %ls ===\n\n", OrEmpty(drive.wszDrive));
        if (drive.hrStatus != 0) {
            Print(L"Failed to retrieve snapshot copy list of LUN '%ls'.\nError: %ls\n", OrEmpty(drive.wszDrive),
                  OrEmpty(drive.wszError));
            continue;
        }
        // Coarser than the single-LUN words on purpose: every non-zero state counts as consistent.
        for (DWORD j = 0; drive.pSnapshots != nullptr && j < drive.dwSnapshotCount; ++j) {
            const SnapshotInfo &snapshot = drive.pSnapshots[j];
            const bool consistent = (snapshot.dwConsistency & 0xFF) != 0;
            Print(L"%ls : %ls\n", OrEmpty(snapshot.wszName), consistent ? L"consistent" : L"not consistent");
        }
    }
}

void PrintVolumeSnapshots(const VolumeSnapshotArray &snapshots) {
    for (DWORD i = 0; snapshots.pSnapshots != nullptr && i < snapshots.dwCount; ++i)
        Print(L"%ls \n", OrEmpty(snapshots.pSnapshots[i].wszName));
}
