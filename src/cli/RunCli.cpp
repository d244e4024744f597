#include "cli/RunCli.h"

#include "cli/Commands.h"
#include "cli/WrongUse.h"

#include <algorithm>
#include <exception>
#include <new>

namespace {
constexpr const char *program = "ferrolyn-cli";

/// Errors are told in one line, whatever texts of users are in them; none of it steers a terminal.
std::string OneLine(std::string text) {
    std::replace_if(
        text.begin(), text.end(), [](unsigned char c) { return c < ' ' || c == 0x7F; }, ' ');
    return text;
}

TExit Wrong(TConsole &console, const CLI::App *command, const std::string &text) {
    const std::string name = command ? " " + command->get_name() : std::string();
    console.err << program << name << ": " << OneLine(text) << '\n';
    return TExit::Wrong;
}

bool IsCommand(const std::string &name) {
    return std::ranges::any_of(Commands(),
                               [&](const TCommand &command) { return command.name == name; });
}

/// The arguments of all commands, and which command they name.
class TCommandLine {
public:
    TCommandLine() {
        app_.name(program);
        app_.set_version_flag("--version", std::string(program) + " " + FERROLYN_VERSION,
                              "Print the version and end");
        app_.require_subcommand(0, 1);
        app_.get_formatter()->label("SUBCOMMAND", "COMMAND");
        app_.get_formatter()->label("REQUIRED", "");
        app_.footer("Maps: fuel-pt fuel-idle fuel-wot timing-pt timing-idle timing-wot\n"
                    "Exit code: 0 done, 1 differences or findings, 2 wrong use or bad input\n"
                    "What a command takes: ferrolyn-cli COMMAND --help");
        for (const TCommand &command : Commands()) {
            CLI::App *app = app_.add_subcommand(command.name, command.summary);
            app->group("Commands");
            app->footer(std::string("Example:\n  ") + command.example);
            runs_.push_back({app, command.declare(*app)});
        }
    }

    /// Throws CLI::ParseError, for help that was asked for too, and EWrongUse without a command.
    void Parse(const std::vector<std::string> &arguments) {
        if (!arguments.empty() && !arguments.front().starts_with('-') && !IsCommand(arguments[0]))
            throw EWrongUse("'" + arguments[0] + "' is no command; ferrolyn-cli --help names them");
        std::vector<std::string> lastFirst(arguments.rbegin(), arguments.rend());
        app_.parse(lastFirst);
        if (!Command())
            throw EWrongUse("no command is given; ferrolyn-cli --help names them");
    }
    CLI::App &App() { return app_; }
    /// None before a command was read.
    const CLI::App *Command() const {
        const std::vector<CLI::App *> named = app_.get_subcommands();
        return named.empty() ? nullptr : named.front();
    }
    const TRun &Run() const {
        return std::find_if(runs_.begin(), runs_.end(),
                            [&](const TDeclared &each) { return each.app == Command(); })
            ->run;
    }

private:
    struct TDeclared {
        const CLI::App *app;
        TRun run;
    };
    CLI::App app_{"Reads, changes, compares and searches the ROM images of engine control units."};
    std::vector<TDeclared> runs_;
};

/// Help goes where results do.
TExit Answer(TCommandLine &line, const std::vector<std::string> &arguments, TConsole &console) {
    try {
        line.Parse(arguments);
    } catch (const CLI::Success &asked) {
        line.App().exit(asked, console.out, console.err);
        return TExit::Done;
    }
    return line.Run()(console);
}
} // namespace

TExit RunCli(const std::vector<std::string> &arguments, TConsole &console) {
    TCommandLine line;
    try {
        const TExit exit = Answer(line, arguments, console);
        if (!console.out.flush())
            throw EWrongUse("standard output cannot be written");
        return exit;
    } catch (const std::bad_alloc &) {
        return Wrong(console, line.Command(), "out of memory");
    } catch (const std::exception &error) {
        return Wrong(console, line.Command(), error.what());
    }
}
