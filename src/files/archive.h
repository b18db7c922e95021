#pragma once
// Archives: several files, compressed, in one.

#include "files/archive_files.h"

enum class ArchiveCommand : char {
    Add = 'A',
    Extract = 'X',
    Delete = 'D',
};

// Runs a command. The entry is named by the part of `filePath` behind its last backslash, in the code page of
// the thread and without regard to case. Adding reads `filePath` and makes the archive when there is none,
// extracting writes it. A failed command leaves the archive as it was.
[[nodiscard]] ArchiveResult RunArchiveCommand(ArchiveFiles& files, const wchar_t* archivePath,
                                              const wchar_t* filePath, ArchiveCommand command,
                                              bool compress) noexcept;

// How many entries can be read. A failure when the archive cannot be opened or not even one header be read;
// what is cut off or spoilt behind the first entry ends the count.
[[nodiscard]] ArchiveResult CountEntries(ArchiveFiles& files, const wchar_t* archivePath,
                                         int& count) noexcept;
// The header of an entry, from 0, and the size of its data.
[[nodiscard]] ArchiveResult ReadEntry(ArchiveFiles& files, const wchar_t* archivePath, int index,
                                      ArchiveHeader& header, uint32_t& packedSize) noexcept;
