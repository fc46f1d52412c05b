#include "cli/CommandLine.h"

#include "cli/Commands.h"

#include <algorithm>
#include <span>

#include <CLI/CLI.hpp>

namespace vantel {

namespace {

constexpr const char* version = "vantelctl " VANTEL_VERSION;

/// The grammar of the command line, writing what it finds into one Invocation. Setting up the options of
/// every command takes longer than most commands do, so only the one that the user names has its own.
class Grammar {
public:
    explicit Grammar(std::string_view named)
        : m_app("The Vantel widgets without a window: look at them, and use their shared files.", "vantelctl")
        , m_named(named) {
        m_app.require_subcommand(1);
        m_app.set_version_flag("--version", version);
        m_app.failure_message(CLI::FailureMessage::simple);
        addWidgetCommands();
        addTaskCommands();
        addFileCommands();
        addHostCommands();
    }

    CLI::App& app() { return m_app; }
    Invocation& invocation() { return m_invocation; }

private:
    using Describe = void (Grammar::*)(CLI::App&);

    void add(const char* name, const char* description, Describe describe) {
        CLI::App* app = m_app.add_subcommand(name, description);
        if (m_named == name)
            (this->*describe)(*app);
    }

    void runs(CLI::App& app, Command command) {
        app.add_flag_callback(
            "--json", [this] { m_arguments.form = OutputForm::json; }, "Print one JSON value");
        app.parse_complete_callback([this, command] { m_invocation.command = command; });
    }

    template <Command Run>
    void runsPlainly(CLI::App& app) {
        runs(app, Run);
    }

    template <Command Run>
    void runsOnASnapshot(CLI::App& app) {
        runs(app, Run);
        takeSnapshot(app);
    }

    template <Command Run>
    void runsOnATask(CLI::App& app) {
        runs(app, Run);
        takeTask(app);
    }

    CLI::App& addInside(CLI::App& group, const char* name, const char* description, Command command) {
        group.require_subcommand(1);
        CLI::App* app = group.add_subcommand(name, description);
        runs(*app, command);
        return *app;
    }

    void takeClock(CLI::App& app) {
        app.add_option("--at", m_arguments.at,
                       "The moment to take for now: seconds since 2001-01-01T00:00:00Z, or ISO 8601")
            ->type_name("INSTANT");
    }

    void takeSnapshot(CLI::App& app) {
        takeClock(app);
        CLI::Option* file = app.add_option("--snapshot", m_arguments.snapshotFile,
                                           "Read this document instead (- for standard input)")
                                ->type_name("FILE");
        app.add_flag("--placeholder", m_arguments.usesPlaceholder, "Use the sample snapshot of the moment")
            ->excludes(file);
    }

    void takeTask(CLI::App& app) {
        takeClock(app);
        app.add_option("TODO_ID", m_arguments.todoID, "The task")->required()->type_name("");
        app.add_option("--account", m_arguments.accountID, "The account that the task belongs to")
            ->required()
            ->type_name("ACCOUNT_ID");
    }

    CLI::Option* takeKind(CLI::App& app) {
        return app
            .add_option("KIND", m_arguments.kind,
                        "focus, next-up, triage, group-today, or the full kind string")
            ->type_name("");
    }

    void addWidgetCommands() {
        add("widgets", "List the widgets", &Grammar::runsPlainly<commands::widgets>);
        add("view", "Show a widget as it looks at a moment", &Grammar::describeView);
        add("timeline", "List the moments at which the widgets change",
            &Grammar::runsOnASnapshot<commands::timeline>);
    }

    void describeView(CLI::App& view) {
        runs(view, commands::view);
        takeKind(view)->required();
        view.add_option("FAMILY", m_arguments.family, "small or medium")->required()->type_name("");
        takeSnapshot(view);
        view.add_flag("--preview", m_arguments.isPreview, "Show the gallery's entry, which reads no file");
    }

    void addTaskCommands() {
        add("buckets", "List the tasks by what is due", &Grammar::runsOnASnapshot<commands::buckets>);
        add("staleness", "Tell how old the snapshot is", &Grammar::runsOnASnapshot<commands::staleness>);
        add("complete", "Complete a task: journal it, and stamp the snapshot",
            &Grammar::runsOnATask<commands::complete>);
    }

    void addFileCommands() {
        add("link", "Print a link that opens the companion application", &Grammar::describeLink);
        add("snapshot", "Read, check and change the shared snapshot", &Grammar::describeSnapshot);
        add("journal", "Read and change the journal of clicks", &Grammar::describeJournal);
    }

    void describeLink(CLI::App& link) {
        for (const char* name : {"focus", "triage", "calendar", "people"})
            addLink(link, name, "Print this link");
        addLink(link, "todo", "Print the link of a task")
            .add_option("ID", m_arguments.linkValue, "The task")
            ->required()
            ->type_name("");
        addLink(link, "join", "Print the link that joins a meeting")
            .add_option("URL", m_arguments.linkValue, "The meeting's own link")
            ->required()
            ->type_name("");
    }

    CLI::App& addLink(CLI::App& group, const char* name, const char* description) {
        CLI::App& app = addInside(group, name, description, commands::link);
        app.parse_complete_callback([this, name] {
            m_invocation.command = commands::link;
            m_arguments.linkName = name;
        });
        return app;
    }

    void describeSnapshot(CLI::App& snapshot) {
        takeSnapshot(addInside(snapshot, "show", "Print the snapshot", commands::snapshotShow));
        m_arguments.file = "-";
        addInside(snapshot, "decode", "Check a document, and print it as it was understood",
                  commands::snapshotDecode)
            .add_option("FILE", m_arguments.file, "The document (- or none for standard input)")
            ->type_name("");
        addInside(snapshot, "write", "Store a document as the shared snapshot", commands::snapshotWrite)
            .add_option("FILE", m_arguments.file, "The document (- for standard input)")
            ->required()
            ->type_name("");
        addSnapshotRemove(snapshot);
        takeTask(
            addInside(snapshot, "complete", "Stamp a task in the snapshot only", commands::snapshotComplete));
        takeClock(addInside(snapshot, "placeholder", "Print the sample snapshot of the moment",
                            commands::snapshotPlaceholder));
    }

    void addSnapshotRemove(CLI::App& snapshot) {
        CLI::App& remove =
            addInside(snapshot, "remove", "Delete the shared snapshot", commands::snapshotRemove);
        CLI::Option* account =
            remove.add_option("--account", m_arguments.accountID, "Only if it belongs to this account")
                ->type_name("ACCOUNT_ID");
        remove
            .add_flag("--allow-legacy-unbound", m_arguments.allowsLegacyUnbound,
                      "Also if it is bound to no account at all")
            ->needs(account);
    }

    void describeJournal(CLI::App& journal) {
        addInside(journal, "list", "List the entries that wait for the companion application",
                  commands::journalList);
        CLI::App& append = addInside(journal, "append", "Add an entry", commands::journalAppend);
        takeTask(append);
        append.add_option("--id", m_arguments.uuid, "The entry's own identifier; random if left out")
            ->type_name("UUID");
        addInside(journal, "remove", "Remove entries", commands::journalRemove)
            .add_option("UUID", m_arguments.uuids, "The entries' identifiers")
            ->required()
            ->type_name("");
        addInside(journal, "clear", "Remove all entries", commands::journalClear);
    }

    void addHostCommands() {
        add("container", "Tell where the shared files are", &Grammar::runsPlainly<commands::container>);
        add("reload", "Ask a running host to reload the widgets", &Grammar::describeReload);
    }

    void describeReload(CLI::App& reload) {
        runs(reload, commands::reload);
        takeKind(reload);
    }

    CLI::App m_app;
    std::string_view m_named;
    Invocation m_invocation{};
    Arguments& m_arguments = m_invocation.arguments;
};

/// The first word that is no option.
std::string_view namedCommand(std::span<const char* const> words) {
    const auto found = std::ranges::find_if(words.subspan(std::min<std::size_t>(1, words.size())),
                                            [](std::string_view word) { return !word.starts_with('-'); });
    return found == words.end() ? std::string_view() : std::string_view(*found);
}

/// The commands that were named, one inside the other, the program first.
std::vector<const CLI::App*> namedCommands(const CLI::App& app) {
    std::vector<const CLI::App*> named = {&app};
    for (auto inner = app.get_subcommands(); !inner.empty(); inner = named.back()->get_subcommands())
        named.push_back(inner.front());
    return named;
}

std::string joined(const std::vector<const CLI::App*>& commands) {
    std::string names;
    for (std::size_t i = 1; i < commands.size(); ++i)
        names.append(i > 1 ? " " : "").append(commands[i]->get_name());
    return names;
}

std::string mistake(const CLI::App& app, const CLI::ParseError& error) {
    const auto commands = namedCommands(app);
    const std::string names = joined(commands);
    const std::string prefix = names.empty() ? "" : names + ": ";
    if (commands.back()->get_require_subcommand_min() == 0)
        return prefix + error.what();
    const auto words = app.remaining(true);
    const std::string what =
        words.empty() ? "a command is missing" : "no command is named \"" + words.front() + "\"";
    return prefix + what + " (vantelctl " + (names.empty() ? "" : names + " ") + "--help lists them)";
}

NothingToRun nothingToRun(const CLI::App& app, const CLI::ParseError& error) {
    if (error.get_exit_code() != 0)
        return {ExitStatus::wrongUsage, mistake(app, error)};
    std::ostringstream output;
    std::ostringstream unused;
    app.exit(error, output, unused);
    return {ExitStatus::done, output.str()};
}

} // namespace

std::expected<Invocation, NothingToRun> parseCommandLine(int count, const char* const* words) {
    Grammar grammar(namedCommand({words, static_cast<std::size_t>(count)}));
    try {
        grammar.app().parse(count, words);
    } catch (const CLI::ParseError& error) {
        return std::unexpected(nothingToRun(grammar.app(), error));
    }
    return grammar.invocation();
}

} // namespace vantel
