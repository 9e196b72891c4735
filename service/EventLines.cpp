#include "service/EventLines.h"

#include "front_end/Console.h"
#include "front_end/Messages.h"

std::wstring ProgressLine(const wchar_t *subject, unsigned eventCode) {
    wchar_t message[256];
    LoadEventMessage(eventCode, message, 256);
    return std::wstring(OrEmpty(subject)) + L" : " + message;
}

std::wstring ReadyToCreateLine(const wchar_t *snapshotName) {
    return std::wstring(OrEmpty(snapshotName)) + L" : Ready to create snapshot copy";
}

std::wstring MirrorProgressLine(const wchar_t *snapshotName, const wchar_t *drive, const wchar_t *text, uint64_t transferred,
                                unsigned countValid, unsigned mirrorState) {
    // No blank between the drive and "- Status": scripts parse the line as it is.
    std::wstring line = std::wstring(OrEmpty(snapshotName)) + L" : Mounting snapshot copy " + OrEmpty(text) + L" Drive " +
                        OrEmpty(drive) + L"- Status ";
    switch (mirrorState) {
    case kMirrorStart:
        line += L"MIRROR START";
        break;
    case kMirrorEnd:
        line += L"MIRROR END\n";
        break;
    case kMirrorReplicate:
        line += L"MIRROR REPLICATE";
        if (countValid == 1 && transferred != 0)
            line += FormatText(L" transferred %u", static_cast<unsigned>(transferred));
        break;
    case kMirrorUserCancelled:
        line += L"USER CANCELLED";
        break;
    default:
        break;
    }
    return line;
}
