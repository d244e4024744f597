// "check": what is wrong or odd about images and where a spec file has their maps.
#include "cli/Commands.h"
#include "cli/Findings.h"
#include "cli/Images.h"
#include "cli/Json.h"
#include "cli/ManyImages.h"
#include "system/PathText.h"

#include <memory>

namespace {
struct TCheckArguments {
    TManyImages images;
    std::string spec;
};

std::string FindingsText(const std::string &image, const std::vector<TFinding> &findings) {
    if (findings.empty())
        return image + ": nothing found\n";
    std::string text;
    for (const TFinding &finding : findings) {
        std::string maps;
        for (const std::string &map : finding.maps)
            maps += (maps.empty() ? "" : ", ") + map;
        text += image + ": " + maps + ": " + finding.text + '\n';
    }
    return text;
}

TJson CheckJson(const std::string &image) {
    TJson json = NewJson("check");
    json["image"] = image;
    return json;
}

TJson FindingsJson(const std::string &image, const std::vector<TFinding> &findings) {
    TJson json = CheckJson(image);
    json["findings"] = TJson::array();
    for (const TFinding &finding : findings)
        json["findings"].push_back(
            {{"kind", NameOf(finding.kind)}, {"maps", finding.maps}, {"text", finding.text}});
    return json;
}

TJson UnreadJson(const std::string &image, const std::string &error) {
    TJson json = CheckJson(image);
    json["error"] = error;
    return json;
}

TExit Check(const TCheckArguments &arguments, TConsole &console) {
    const std::filesystem::path spec = ToPath(arguments.spec);
    TMappedImage none({});
    PlaceMaps(none, spec); // a spec file that is wrong is no image's error
    const TIniFile ini = TIniFile::Load(spec);
    const TManyImages &images = arguments.images;
    const auto answer = [&](const std::string &image) -> TAnswer {
        const std::vector<TFinding> findings = Findings(ReadMappedImage(ToPath(image), spec), ini);
        return {images.Form() == TForm::Text ? FindingsText(image, findings)
                                             : images.Text(FindingsJson(image, findings)),
                findings.empty() ? TExit::Done : TExit::Found};
    };
    const auto unread = [&](const std::string &image, const std::string &error) {
        return images.Form() == TForm::Text ? image + ": error: " + error + '\n'
                                            : images.Text(UnreadJson(image, error));
    };
    return images.Run(console, images.Files(), answer, unread);
}
} // namespace

TRun DeclareCheck(CLI::App &app) {
    const auto arguments = std::make_shared<TCheckArguments>();
    arguments->images.Declare(app, TForm::Text);
    app.add_option("--spec", arguments->spec, "Spec file that says where their maps are")
        ->required()
        ->type_name("FILE");
    return [arguments](TConsole &console) { return Check(*arguments, console); };
}
