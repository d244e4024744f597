// What a PDF file tells without being unpacked.
#pragma once

#include "support/TemporaryFolder.h"

#include <string>

#include <gtest/gtest.h>

/// The number of pages of a file that has its beginning and its end.
inline int PagesOf(const std::filesystem::path &file) {
    const std::vector<std::uint8_t> bytes = GetFile(file);
    const std::string text(bytes.begin(), bytes.end());
    EXPECT_TRUE(text.starts_with("%PDF-"));
    EXPECT_TRUE(text.ends_with("%%EOF\n"));
    const std::string page = "/Type /Page\n";
    int pages = 0;
    for (std::size_t at = text.find(page); at != std::string::npos; at = text.find(page, at + 1))
        ++pages;
    return pages;
}
