// "check": what is wrong or odd about images and where a spec file has their maps.
#include "cli/Commands.h"
#include "cli/Findings.h"
#include "cli/Images.h"
#include "cli/Json.h"
#include "cli/ManyImages.h"
#include "cli/Paths.h"

#include <memory>

namespace {
struct TCheckArguments {
    TManyImages images;
    std::string spec;
    std::string format = "text";

    bool Json() const { return format == "json"; }
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

std::string FindingsJson(const std::string &image, const std::vector<TFinding> &findings,
                         TJsonLayout layout) {
    TJson json = CheckJson(image);
    json["findings"] = TJson::array();
    for (const TFinding &finding : findings)
        json["findings"].push_back(
            {{"kind", NameOf(finding.kind)}, {"maps", finding.maps}, {"text", finding.text}});
    return JsonText(json, layout);
}

std::string UnreadText(const std::string &image, const std::string &error, bool json) {
    if (!json)
        return image + ": error: " + error + '\n';
    TJson unread = CheckJson(image);
    unread["error"] = error;
    return JsonText(unread, TJsonLayout::OneLine);
}

TExit Check(const TCheckArguments &arguments, TConsole &console) {
    const std::filesystem::path spec = ToPath(arguments.spec);
    TMappedImage none({});
    PlaceMaps(none, spec); // a spec file that is wrong is no image's error
    const TIniFile ini = TIniFile::Load(spec);
    const TJsonLayout layout = arguments.images.Many() ? TJsonLayout::OneLine : TJsonLayout::Pretty;
    const auto answer = [&](const std::string &image) -> TAnswer {
        const std::vector<TFinding> findings = Findings(ReadMappedImage(ToPath(image), spec), ini);
        return {arguments.Json() ? FindingsJson(image, findings, layout)
                                 : FindingsText(image, findings),
                findings.empty() ? TExit::Done : TExit::Found};
    };
    const auto unread = [&](const std::string &image, const std::string &error) {
        return UnreadText(image, error, arguments.Json());
    };
    return arguments.images.Run(console, arguments.images.Files(), answer, unread);
}
} // namespace

TRun DeclareCheck(CLI::App &app) {
    const auto arguments = std::make_shared<TCheckArguments>();
    arguments->images.Declare(app);
    app.add_option("--spec", arguments->spec, "Spec file that says where their maps are")
        ->required()
        ->type_name("FILE");
    app.add_option("--format", arguments->format, "text, or json: of many images a line for each")
        ->check(CLI::IsMember({"text", "json"}))
        ->type_name("FORMAT");
    return [arguments](TConsole &console) { return Check(*arguments, console); };
}
