#pragma once

#include <cstddef>
#include <cstdint>
#include <string>

// The file that an input stands for. The first byte says how:
//   'p'  a plain file with the text that follows
//   'c'  the same, compressed
//   'r'  compressed, the text after the next byte repeated up to that many times 16, but to no more than 16 KB
//   's'  compressed, with the next 12 bytes as the three numbers before the stream
// anything else: the bytes are the file itself, so that every file is also an input.
//
// A fuzzer cannot make up a zlib stream with a valid checksum; without this wrapping it would never get past it.
std::string fileFrom(const std::uint8_t* data, std::size_t size);
