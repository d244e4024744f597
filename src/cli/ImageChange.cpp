#include "cli/ImageChange.h"

#include "system/SafeFile.h"

void TMappedArguments::Declare(CLI::App &app) {
    app.add_option("IMAGE", image_, "ROM image")->required()->type_name("");
    app.add_option("--spec", spec_, "Spec file that says where its maps are")
        ->required()
        ->type_name("FILE");
    app.add_flag("--raw", raw_, "Values are counts as they are stored, not units");
}

TMappedImage TMappedArguments::Read() const {
    return ReadMappedImage(Image(), Spec(), raw_ ? TShown::Counts : TShown::Units);
}

void TImageChange::Declare(CLI::App &app) {
    arguments_.Declare(app);
    output_.Declare(app);
    output_.DeclareStrict(app, "Write nothing when a value would not be stored exactly");
}

void TImageChange::Run(TConsole &console, const std::vector<std::filesystem::path> &others,
                       const std::function<void(TWorkspace &maps, TNotes &notes)> &change) const {
    std::vector<std::filesystem::path> read = others;
    read.push_back(arguments_.Spec());
    const std::filesystem::path file = output_.File(arguments_.Image(), read);
    TMappedImage image = arguments_.Read();
    TNotes notes;
    image.Change([&](TWorkspace &maps) { change(maps, notes); });
    notes.Tell(console, output_.Strict());
    WriteFileSafely(file, image.Bytes());
}

TMap &MapOf(TWorkspace &maps, TMapId map) {
    TMapSet &set = map.set == TMapSetKind::Fuel ? static_cast<TMapSet &>(maps.fuelMapSet)
                                                : static_cast<TMapSet &>(maps.timingMapSet);
    return set.Map(map.kind);
}
