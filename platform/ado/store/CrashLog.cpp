#include "platform/ado/store/CrashLog.h"

#include <fstream>

namespace ado {
namespace {

constexpr std::size_t HeaderSize = 32, FrameHeaderSize = 24, SectorSize = 512;
constexpr std::uint32_t Magic = 0x377f0682;  // the lowest bit tells the order of the bytes that are summed

std::uint32_t Word(const std::string& bytes, std::size_t at, bool bigEndian = true) {
    std::uint32_t word = 0;
    for (std::size_t i = 0; i < 4; ++i) {
        const auto byte = static_cast<unsigned char>(bytes[at + (bigEndian ? i : 3 - i)]);
        word = word << 8 | byte;
    }
    return word;
}

// The sum runs on from the header over all frames.
class Sum {
  public:
    explicit Sum(bool bigEndian) : bigEndian_(bigEndian) {}
    void Add(const std::string& bytes, std::size_t from, std::size_t size) {
        for (std::size_t at = from; at < from + size; at += 8) {
            first_ += Word(bytes, at, bigEndian_) + second_;
            second_ += Word(bytes, at + 4, bigEndian_) + first_;
        }
    }
    bool StandsAt(const std::string& bytes, std::size_t at) const {
        return Word(bytes, at) == first_ && Word(bytes, at + 4) == second_;
    }

  private:
    bool bigEndian_;
    std::uint32_t first_ = 0, second_ = 0;
};

bool ReadPart(std::ifstream& file, std::string& part) {
    return static_cast<bool>(file.read(part.data(), static_cast<std::streamsize>(part.size())));
}

bool SharesAHalf(std::string_view one, std::string_view other) {
    return one.substr(0, SectorSize) == other.substr(0, SectorSize) ||
           one.substr(SectorSize) == other.substr(SectorSize);
}

}  // namespace

std::uint64_t EndOfFrames(std::uint32_t frames) {
    return HeaderSize + std::uint64_t{frames} * (FrameHeaderSize + PageSize);
}

CrashLog ReadCrashLog(const std::string& log, std::string_view firstPage) {
    CrashLog result;
    std::ifstream file(log, std::ios::binary);
    std::string header(HeaderSize, '\0'), frame(FrameHeaderSize + PageSize, '\0'), lastFirstPage;
    if (!ReadPart(file, header) || (Word(header, 0) & ~1U) != Magic || Word(header, 8) != PageSize) return {};
    Sum sum((Word(header, 0) & 1U) != 0);
    sum.Add(header, 0, 24);
    if (!sum.StandsAt(header, 24)) return {};
    while (ReadPart(file, frame)) {
        sum.Add(frame, 0, 8);
        sum.Add(frame, FrameHeaderSize, PageSize);
        if (frame.compare(8, 8, header, 16, 8) != 0 || !sum.StandsAt(frame, 16)) break;
        if (Word(frame, 0) == 1) {
            lastFirstPage = frame.substr(FrameHeaderSize);
            result.knowsFirstPage = result.knowsFirstPage || SharesAHalf(lastFirstPage, firstPage);
        }
        const std::uint32_t pages = Word(frame, 4);  // 0 but in the frame that ends a transaction
        if (pages == 0 || result.holdsChanges) continue;
        result.firstPage = lastFirstPage;
        result.pages = pages;
        result.holdsChanges = true;
    }
    return result;
}

}  // namespace ado
