#pragma once

#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>

namespace test {

// All that a file holds.
inline std::string Bytes(const std::filesystem::path& file) {
    std::ifstream in(file, std::ios::binary);
    return {std::istreambuf_iterator<char>(in), {}};
}

}  // namespace test
