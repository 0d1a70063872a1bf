#pragma once

#include <cstdint>
#include <filesystem>

namespace bench {

// Books for measuring, laid down once per run of the benchmarks in a folder of their own and removed at the
// end: year 2001 with a number of ledgers and voucher rows, written directly.
inline constexpr std::int64_t Ledgers = 5000;

// On the disk, or in memory where nothing waits for the disk: durability off.
enum class Place { Disk, Memory };

// The folder of books with `rows` voucher rows; `copy`, from 1, tells apart books that are written to
// independently.
std::filesystem::path BooksWith(std::int64_t rows, Place place, int copy);

}  // namespace bench
