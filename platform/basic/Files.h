#pragma once

#include <filesystem>

// What a file must be given so that it outlives a power cut and never takes another's place.
namespace basic {

// Returns when the content of a file, or the names in a folder, are on the disk. Raises 5 with the system's
// reason.
void SyncToDisk(const std::filesystem::path& path);

// Gives a file another name within its file system. False, and nothing done, where something bears that name;
// raises 5 with the system's reason.
bool RenameTo(const std::filesystem::path& from, const std::filesystem::path& to);

// The same, but in one step over what bears that name, which is gone then.
void RenameOver(const std::filesystem::path& from, const std::filesystem::path& to);

// A name beside `file` that tells the moment, "QmAccount-2025-04-01-183000.mdb" for "QmAccount.mdb", and that
// neither a file nor a log or journal of one bears yet.
std::filesystem::path DatedName(const std::filesystem::path& file);

// Makes an empty file that only its owner can read and write, whatever the process's mask. Raises 5 with the
// system's reason, also where something bears the name.
void MakePrivate(const std::filesystem::path& file);

}  // namespace basic
