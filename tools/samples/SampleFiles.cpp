#include "samples/SampleFiles.h"

#include <cerrno>
#include <cstring>
#include <fstream>
#include <iomanip>
#include <ostream>
#include <sstream>
#include <system_error>

namespace {

std::string Hex(std::uint32_t value, int digits = 4) {
    std::ostringstream text;
    text.imbue(std::locale::classic());
    text << '$' << std::hex << std::uppercase << std::setw(digits) << std::setfill('0') << value;
    return text.str();
}

constexpr const char *timingConstants = "timing_divider=0.65\ntiming_subtractor=12.7\n";

std::string OtherMaps(const TSamplePlan &plan) {
    return "[Other Maps]\nrevlimit_offset=" + Hex(plan.revLimiter) + "\n";
}

std::string MapOffsets(const char *section, const TSamplePlan &plan, std::size_t firstMap) {
    return "[" + std::string(section) + "]\npt_offset=" + Hex(plan.maps[firstMap]) +
           "\nidle_offset=" + Hex(plan.maps[firstMap + 1]) +
           "\nwot_offset=" + Hex(plan.maps[firstMap + 2]) + "\n";
}

std::string ImageText(const TSamplePlan &plan) {
    const std::vector<std::uint8_t> bytes = BuildSampleImage(plan);
    return {bytes.begin(), bytes.end()};
}

bool WriteFile(const std::filesystem::path &path, const std::string &bytes, std::ostream &err) {
    errno = 0;
    std::ofstream file(path, std::ios::binary | std::ios::trunc);
    file.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
    file.close();
    if (!file)
        err << "cannot write " << path.string() << ": " << std::strerror(errno) << '\n';
    return !file.fail();
}

} // namespace

std::string DirectSpecText(const std::string &label, const TSamplePlan &plan) {
    return "; " + label + "\n[Main]\n" + timingConstants + MapOffsets("Fuel Maps", plan, smFuelPT) +
           MapOffsets("Timing Maps", plan, smTimingPT) + OtherMaps(plan);
}

std::string PointerSpecText(const std::string &label, const TSamplePlan &plan) {
    constexpr const char *keys[sampleMapCount] = {
        "fuelmap_pt_pointer_offset",   "fuelmap_id_pointer_offset",
        "fuelmap_wot_pointer_offset",  "timingmap_pt_pointer_offset",
        "timingmap_id_pointer_offset", "timingmap_wot_pointer_offset",
    };
    const std::uint32_t primary = plan.pointerTable & ~0xFFU;
    std::string text = "; " + label + "\n[Main]\nprimary_offset=" + Hex(primary) + "\n";
    std::uint32_t pointer = plan.pointerTable - primary;
    for (const char *key : keys) {
        text += std::string(key) + "=" + Hex(pointer) + "\n";
        pointer += 2;
    }
    const std::uint32_t highByteMask = (plan.size - 1) >> 8;
    return text + "bitmask=" + Hex(highByteMask, 2) + "\n" + timingConstants + OtherMaps(plan);
}

std::vector<TSampleFile> SampleFiles() {
    return {
        {"FERRO32K.BIN", ImageText(Sample32K())},
        {"FERRO64K.BIN", ImageText(Sample64K())},
        {"FERRO32K.SPC", DirectSpecText("Ferrolyn sample 32K, offsets", Sample32K())},
        {"FERRO32P.SPC", PointerSpecText("Ferrolyn sample 32K, map pointers", Sample32K())},
    };
}

bool WriteSampleFiles(const std::filesystem::path &folder, std::ostream &out, std::ostream &err) {
    std::error_code error;
    std::filesystem::create_directories(folder, error);
    if (error) {
        err << "cannot create " << folder.string() << ": " << error.message() << '\n';
        return false;
    }
    for (const TSampleFile &file : SampleFiles()) {
        const std::filesystem::path path = folder / file.name;
        if (!WriteFile(path, file.bytes, err))
            return false;
        out << "wrote " << path.string() << " (" << file.bytes.size() << " bytes)\n";
    }
    return true;
}
