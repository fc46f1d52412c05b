#include "host/app/Options.h"

#include <sstream>

#include <CLI/CLI.hpp>

namespace vantel {

namespace {

constexpr const char* version = "vantel-widgets " VANTEL_VERSION;
constexpr int wrongUsage = 2;

WantedBackEnd backEndNamed(const std::string& name) {
    if (name == "auto")
        return WantedBackEnd::automatic;
    return name == "x11" ? WantedBackEnd::x11 : WantedBackEnd::wayland;
}

/// The grammar of the command line, writing what it finds into one Options.
class Grammar {
public:
    Grammar()
        : m_app("The Vantel widgets on your desktop.", "vantel-widgets") {
        m_app.set_version_flag("--version", version);
        m_app.failure_message(CLI::FailureMessage::simple);
        addBackEnd();
        addGallery();
        addRender();
        addDoctor();
    }

    CLI::App& app() { return m_app; }
    const Options& options() const { return m_options; }

private:
    void addSnapshotOptions(CLI::App& app) {
        CLI::Option* file =
            app.add_option("--snapshot", m_options.snapshotFile, "Show this document")->type_name("FILE");
        app.add_flag("--placeholder", m_options.usesPlaceholder, "Show the sample day of the moment")
            ->excludes(file);
    }

    void addBackEnd() {
        m_app
            .add_option_function<std::string>(
                "--backend", [this](const std::string& name) { m_options.backEnd = backEndNamed(name); },
                "What the widgets stand on: auto (layers of the desktop where the Wayland compositor has "
                "them, "
                "else the X server), x11, or wayland")
            ->check(CLI::IsMember({"auto", "x11", "wayland"}))
            ->type_name("");
    }

    CLI::Option* addOutput(CLI::App& app) {
        app.add_option("--at", m_options.at,
                       "The moment to take for now: seconds since 2001-01-01T00:00:00Z, or ISO 8601")
            ->type_name("INSTANT");
        app.add_option("--scale", m_options.scale, "Pixels for a point (2)")
            ->check(CLI::Range(0.5, 8.0))
            ->type_name("N");
        return app.add_option("--output", m_options.output, "The picture to write")
            ->check([](const std::string& file) { return std::string(file.empty() ? "has no name" : ""); })
            ->type_name("FILE.png");
    }

    void addGallery() {
        CLI::App* app = m_app.add_subcommand("gallery", "Choose widgets to add, or draw all of them");
        CLI::Option* output = addOutput(*app);
        for (CLI::Option* option : app->get_options())
            if (option != output && option != app->get_help_ptr())
                option->needs(output);
        app->callback(
            [this] { m_options.task = m_options.output.empty() ? Task::showGallery : Task::renderGallery; });
    }

    void addRender() {
        CLI::App* app = m_app.add_subcommand("render", "Draw one widget into a picture");
        app->add_option("KIND", m_options.kind, "focus, next-up, triage, group-today, or a kind string")
            ->required()
            ->type_name("");
        app->add_option("FAMILY", m_options.family, "small or medium")->required()->type_name("");
        addOutput(*app)->required();
        app->add_option_function<std::string>(
               "--appearance", [this](const std::string& name) { m_options.isDark = name == "dark"; },
               "light or dark")
            ->check(CLI::IsMember({"light", "dark"}))
            ->type_name("");
        addSnapshotOptions(*app);
        app->callback([this] { m_options.task = Task::renderCard; });
    }

    void addDoctor() {
        m_app.add_subcommand("doctor", "Say what the widgets find here, and what stands in their way")
            ->callback([this] { m_options.task = Task::examine; });
    }

    CLI::App m_app;
    Options m_options;
};

} // namespace

std::expected<Options, NothingToDo> parseOptions(int count, const char* const* words) {
    Grammar grammar;
    try {
        grammar.app().parse(count, words);
    } catch (const CLI::ParseError& error) {
        std::ostringstream text;
        const int status = grammar.app().exit(error, text, text);
        return std::unexpected(NothingToDo{status == 0 ? 0 : wrongUsage, text.str()});
    }
    return grammar.options();
}

} // namespace vantel
