#include "platform/ado/store/BooksFile.h"

#include <array>
#include <cmath>
#include <cstddef>
#include <filesystem>
#include <fstream>
#include <string_view>

#include <unistd.h>

namespace ado {
namespace {

constexpr std::size_t pageSize = 1024;

// Bits per byte. Of a page of cipher text it is about 7.8; texts and documents stay below 6.
double Entropy(std::string_view bytes) {
    std::array<int, 256> counts{};
    for (char byte : bytes) ++counts[static_cast<unsigned char>(byte)];
    double entropy = 0;
    for (int count : counts) {
        if (count == 0) continue;
        const double share = count / static_cast<double>(bytes.size());
        entropy -= share * std::log2(share);
    }
    return entropy;
}

bool LooksEncrypted(const std::string& path, std::uintmax_t size) {
    if (size % pageSize != 0) return false;
    std::string page(pageSize, '\0');
    std::ifstream(path, std::ios::binary).read(page.data(), static_cast<std::streamsize>(pageSize));
    return !page.starts_with("SQLite format 3") && Entropy(page) > 7;
}

}  // namespace

FileLook LookAt(const std::string& path, bool closely) {
    std::error_code failure;
    if (!std::filesystem::exists(path, failure)) return FileLook::Missing;
    if (!std::filesystem::is_regular_file(path, failure)) return FileLook::NoFile;
    if (std::filesystem::hard_link_count(path, failure) > 1) return FileLook::ManyNames;
    if (::access(path.c_str(), R_OK | W_OK) != 0) return FileLook::NotReadable;
    const std::uintmax_t size = std::filesystem::file_size(path, failure);
    if (failure || size == 0) return FileLook::NotBooks;
    return !closely || LooksEncrypted(path, size) ? FileLook::Encrypted : FileLook::NotBooks;
}

}  // namespace ado
