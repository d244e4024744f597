// Tests with a folder MANY for many images.
#pragma once

#include "cli/CliFixture.h"

#include <QJsonDocument>
#include <QJsonObject>

class TCliJobsTest : public TCliTest {
protected:
    TCliJobsTest() { std::filesystem::create_directory(folder / "MANY"); }

    /// Images of two sizes and many contents, among them one that is broken, in MANY.
    void PutImages(int count) {
        for (int i = 0; i < count; ++i) {
            std::vector<std::uint8_t> bytes = Bytes(i % 5 == 0 ? "64K.BIN" : "32K.BIN");
            bytes[0x6003] = static_cast<std::uint8_t>(i);
            bytes[0x01F0] = static_cast<std::uint8_t>(i * 16);
            PutFile(folder / ("MANY/" + std::to_string(100 + i) + ".BIN"), bytes);
        }
        PutText("MANY/103.BIN", "");
    }

    /// How an image in that folder is named.
    static std::string Many(const char *name) {
        return (std::filesystem::path("MANY") / name).string();
    }

    static std::vector<std::string> Lines(const std::string &text) {
        std::vector<std::string> lines;
        for (std::size_t start = 0; start < text.size(); start = text.find('\n', start) + 1)
            lines.push_back(text.substr(start, text.find('\n', start) - start));
        return lines;
    }

    /// What each line says of a field.
    static std::vector<std::string> Field(const std::string &text, const char *field) {
        std::vector<std::string> values;
        for (const std::string &line : Lines(text)) {
            const QJsonDocument json = QJsonDocument::fromJson(QByteArray::fromStdString(line));
            values.push_back(json[field].toString().toStdString());
        }
        return values;
    }
};
