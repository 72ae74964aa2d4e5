#pragma once

#include <cstddef>
#include <cstdint>
#include <string>

// The file that an input stands for. The first byte says how:
//   'p'  a plain file whose text follows
//   'c'  the same, compressed
//   'r'  compressed, the text behind the next byte repeated up to that many times 16, to no more than 16 KB
//   's'  compressed, and the three numbers in front of the stream are the next 12 bytes
// anything else: the bytes are the file themselves, so that every file is an input as it lies there.
//
// A fuzzer cannot make up a zlib stream with a right checksum; without the wrapping it would never get past it.
std::string fileFrom(const std::uint8_t* data, std::size_t size);
