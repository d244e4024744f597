// The digest that tells which image a file belongs to. The arithmetic is a library's.
#pragma once

#include <cstdint>
#include <span>
#include <string>

/// SHA-256 of the bytes: 64 lower-case hexadecimal digits.
std::string Sha256(std::span<const std::uint8_t> bytes);
