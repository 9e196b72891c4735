// Printers of the connected-disk records, shared by every disk operation that
// shows a disk (list, expand, ...).
#pragma once

#include "Corvane.h"

#include <string>

void PrintDiskInfo(const DiskInfo &disk);
void PrintDiskInfoEx(const DiskInfoEx &entry);
// Kind 0 prints the FCP WWPN, kind 1 the iSCSI node name, other kinds nothing.
void PrintInitiatorInfo(const wchar_t *prefix, const InitiatorInfo &initiator);
// An FCP port name held as 8 raw bytes.
void PrintFcpPortName(const wchar_t *prefix, const unsigned char (&portName)[8]);

// "\tSize:" with the low 32 bits of the size as a signed number, as the line
// has always shown it, for a connected disk and for a LUN under a virtual hard disk.
void PrintSizeLine(long long size);

// 1 MBR, 2 GPT, 3 Raw, anything else "Unknown"; also the style of a LUN under a virtual hard disk.
const wchar_t *PartitionStyleText(DWORD style);

// The serial number is a narrow string in the active code page.
std::wstring WidenSerialNumber(const char *serial);
