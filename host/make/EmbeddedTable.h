#pragma once

#include <cstddef>

// What the build writes for Embedded.cpp: the bytes of the data files.
namespace host {

struct EmbeddedFile {
    const char* name;
    const unsigned char* bytes;
    std::size_t size;
};

extern const EmbeddedFile EmbeddedFiles[];
extern const std::size_t EmbeddedCount;

}  // namespace host
