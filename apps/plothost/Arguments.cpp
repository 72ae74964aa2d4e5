#include "plothost/Arguments.h"

#include "plothost/CloseName.h"

#include <CLI/App.hpp>
#include <CLI/Config.hpp>
#include <CLI/Formatter.hpp>

#include <algorithm>
#include <charconv>
#include <utility>

namespace plothost
{
namespace
{
// Every option with a value, as it is typed; used where the parsing library's own message would not help.
constexpr const char* optionsWithValue[] = {"--search-path", "--language", "--module", "--settings",
                                            "--reseller",    "--out",      "--paper",  "--wait"};

constexpr int longestWait = 3600; // seconds

constexpr const char* footer =
    "Without a command the Plot dialog opens.\n"
    "\n"
    "Files are looked for relative to the current folder, then on the search path: the folders of --search-path,\n"
    "else of the environment variable PLOTHOST_SEARCH_PATH, else the current folder. Folders are separated by ';'.\n"
    "A name that begins with a dash must follow '--'.\n"
    "\n"
    "The reseller data store gives the module the names of the product's own printers, under the keys PDFPRINTERNAME\n"
    "and JPGPRINTERNAME. It is filled from the settings file (UTF-8, one KEY=VALUE per line) and then from\n"
    "--reseller, which may be repeated. A missing key has the product's default name.\n"
    "\n"
    "Exit status: 0 success; 1 refused, and standard error says why; 2 wrong usage;\n"
    "3 the module could not be loaded.\n";

struct CommandText
{
    Verb verb;
    const char* name;
    const char* summary;
    const char* details;
};

constexpr CommandText commandTexts[] = {
    {Verb::plot, "plot", "Choose a plot device and edit its configuration in a dialog",
     "This also happens without a command.\n"},
    {Verb::list, "list", "List the printers and the configurations on the search path", ""},
    {Verb::devmode, "devmode", "Ask the module for the printer and DEVMODE of a device name",
     "NAME ends in .pc3 for a configuration; everything else is the name of a Windows printer, which has no DEVMODE\n"
     "of its own here.\n"},
    {Verb::edit, "edit", "Edit a configuration, or make one for a printer, in the module's editor",
     "Prints the values that the editor left; \"result\" is the configuration's driver type, whether it was saved or "
     "not.\n"},
    {Verb::create, "create", "Make a configuration for an installed printer", ""},
    {Verb::show, "show", "Show a configuration as the module reads it", ""},
    {Verb::commands, "commands", "List the commands that the module registered", ""},
};

std::string quoted(const std::string& text)
{
    return "'" + text + "'";
}

// The library's own parser, set up for this program. The request is filled while it parses.
class Parser
{
public:
    Parser() : m_app("Reference host of the plotter configuration module.", "plothost")
    {
        m_app.get_formatter()->column_width(28);
        m_app.get_formatter()->label("SUBCOMMAND", "COMMAND");
        m_app.get_formatter()->label("Positionals", "Arguments");
        // A name or path may begin with a slash.
        m_app.allow_windows_style_options(false);
        m_app.require_subcommand(0, 1);
        // The program's options may follow the command too.
        m_app.fallthrough();
        m_app.option_defaults()->multi_option_policy(CLI::MultiOptionPolicy::TakeLast);
        m_app.set_help_flag("--help,-h", "Print this help, or that of the command");
        m_app.set_version_flag("--version", "plothost " GARM_VERSION, "Print the version");
        addText(m_app, "--search-path", m_searchPath, "Folders to look for configurations in", "DIRS");
        addText(m_app, "--language", m_language, "Language of the module's texts; English when there is none", "TAG");
        addText(m_app, "--module", m_module, "The module; by default GarmPC3Editor.grx beside this program", "FILE");
        addText(m_app, "--settings", m_settings, "The host's settings; by default plothost.ini beside this program",
                "FILE");
        addText(m_app, "--wait", m_wait, "Longest wait for the print server; 30 seconds by default", "SECONDS");
        m_app.add_option("--reseller", m_reseller, "Put a value into the reseller data store")
            ->type_name("KEY=VALUE")
            ->multi_option_policy(CLI::MultiOptionPolicy::TakeAll)
            ->allow_extra_args(false);
        m_app.footer(footer);

        for (const CommandText& text : commandTexts)
        {
            CLI::App* command = m_app.add_subcommand(text.name, text.summary);
            command->group("Commands");
            command->fallthrough();
            command->footer(text.details);
            m_commands.emplace_back(text.verb, command);
        }
        command(Verb::list)->add_flag("--json", m_json, "Print JSON");
        command(Verb::devmode)->add_flag("--json", m_json, "Print JSON");
        command(Verb::edit)->add_flag("--json", m_json, "Print JSON");
        command(Verb::show)->add_flag("--json", m_json, "Print JSON");

        addText(*command(Verb::devmode), "NAME", m_name, "Configuration or printer", "")->required();
        addText(*command(Verb::devmode), "--out", m_out, "Write the DEVMODE's bytes", "FILE");
        command(Verb::devmode)
            ->add_flag("--background", m_background, "Check in the background, wait for the message (60 s at most)");
        addText(*command(Verb::edit), "NAME", m_name, "Configuration, or printer with --printer", "")->required();
        command(Verb::edit)->add_flag("--printer", m_isPrinter, "NAME is a printer; make a configuration for it");
        addText(*command(Verb::edit), "--paper", m_paper, "Paper to select in the configuration", "NAME");
        addText(*command(Verb::create), "PRINTER", m_name, "Name of the printer", "")->required();
        addText(*command(Verb::create), "FILE", m_file, "File to write, ending in .pc3", "")->required();
        addText(*command(Verb::show), "FILE", m_file, "Configuration to read", "")->required();
        command(Verb::show)->add_flag("--full", m_full, "Show long names and values whole");
    }

    ParsedArguments parse(std::vector<std::string> arguments)
    {
        if (const std::string empty = emptyValue(arguments); !empty.empty())
            return wrongUsage(empty + " needs a value");
        const auto dashes = std::find(arguments.begin(), arguments.end(), "--");
        if (dashes != arguments.end())
            m_behindDashes.assign(dashes + 1, arguments.end());
        const bool none = arguments.empty();
        const std::string last = none ? std::string() : arguments.back();
        std::reverse(arguments.begin(), arguments.end()); // the order that the library expects
        try
        {
            m_app.parse(std::move(arguments));
        }
        catch (const CLI::CallForVersion& version)
        {
            return {{}, exitYes, std::string(version.what()) + "\n", {}};
        }
        catch (const CLI::CallForHelp&)
        {
            return {{}, exitYes, m_app.help(), {}};
        }
        catch (const CLI::ArgumentMismatch& mismatch)
        {
            const bool noValue =
                std::find(std::begin(optionsWithValue), std::end(optionsWithValue), last) != std::end(optionsWithValue);
            return wrongUsage(noValue ? last + " needs a value" : mismatch.what());
        }
        catch (const CLI::ParseError& error)
        {
            // An unexpected argument explains more than the name that is missing because of it.
            const std::vector<std::string> extra = leftOver();
            return extra.empty() ? wrongUsage(error.what()) : unexpected(extra);
        }
        const auto chosen = std::find_if(m_commands.begin(), m_commands.end(),
                                         [](const auto& entry) { return entry.second->parsed(); });
        return request(chosen == m_commands.end() ? Verb::plot : chosen->first);
    }

private:
    static CLI::Option* addText(CLI::App& app, const char* name, std::string& value, const char* text, const char* type)
    {
        return app.add_option(name, value, text)->type_name(type);
    }

    CLI::App* command(Verb verb) const
    {
        for (const auto& [candidate, app] : m_commands)
            if (candidate == verb)
                return app;
        return nullptr;
    }

    const CLI::App* chosenCommand() const
    {
        const std::vector<CLI::App*> chosen = m_app.get_subcommands();
        return chosen.empty() ? nullptr : chosen.front();
    }

    // "--out=" would take the next argument as its value.
    static std::string emptyValue(const std::vector<std::string>& arguments)
    {
        for (const std::string& argument : arguments)
        {
            if (argument == "--")
                break;
            for (const char* option : optionsWithValue)
                if (argument == std::string(option) + "=")
                    return option;
        }
        return {};
    }

    std::vector<std::string> leftOver() const
    {
        std::vector<std::string> result = m_app.remaining(true);
        std::erase(result, "--");
        // An unknown option comes first: it may have pushed a name out of its place.
        std::stable_partition(result.begin(), result.end(),
                              [](const std::string& text) { return text.starts_with('-'); });
        return result;
    }

    ParsedArguments unexpected(const std::vector<std::string>& extra) const
    {
        const std::string& word = extra.front();
        const CLI::App* chosen = chosenCommand();
        const auto behind = std::count(m_behindDashes.begin(), m_behindDashes.end(), word);
        const bool isArgument = std::count(extra.begin(), extra.end(), word) <= behind;
        if (word.starts_with('-') && word.size() > 1 && !isArgument)
        {
            const std::string option = word.substr(0, word.find('='));
            std::vector<std::string> known = optionNames(m_app);
            std::string message = "unknown option " + quoted(option);
            if (chosen)
            {
                message = quoted(chosen->get_name()) + " has no option " + quoted(option);
                const std::vector<std::string> own = optionNames(*chosen);
                known.insert(known.end(), own.begin(), own.end());
            }
            message += hint(closestName(option, known));
            return wrongUsage(message, "A name that begins with a dash must follow '--'.");
        }
        if (chosen)
            return wrongUsage("unexpected argument " + quoted(word),
                              word.starts_with('-') ? "" : "A name with blanks needs quotation marks around it.");
        std::vector<std::string> names;
        for (const CommandText& text : commandTexts)
            names.emplace_back(text.name);
        return wrongUsage("unknown command " + quoted(word) + hint(closestName(word, names)));
    }

    static std::string hint(const std::string& meant)
    {
        return meant.empty() ? "" : "; did you mean " + quoted(meant) + "?";
    }

    static std::vector<std::string> optionNames(const CLI::App& app)
    {
        std::vector<std::string> names;
        for (const CLI::Option* option : app.get_options())
            for (const std::string& name : option->get_lnames())
                names.push_back("--" + name);
        return names;
    }

    ParsedArguments wrongUsage(const std::string& message, const std::string& advice = {}) const
    {
        const CLI::App* chosen = chosenCommand();
        std::string error = "plothost: " + message + "\n";
        if (!advice.empty())
            error += advice + "\n";
        error += std::string("Try 'plothost ") + (chosen ? chosen->get_name() + " " : "") + "--help'.\n";
        return {{}, exitUsage, {}, error};
    }

    ParsedArguments request(Verb verb) const
    {
        for (const CLI::Option* option : command(verb)->get_options())
            if (option->get_positional() && option->count() > 0 && option->results().front().empty())
                return wrongUsage(option->get_name(true) + " is empty");
        // A file name cannot be empty; for the other options an empty value has a meaning.
        for (const char* name : {"--module", "--settings"})
            if (isEmptyValue(m_app, name))
                return wrongUsage(std::string(name) + " needs a value");
        if (verb == Verb::devmode && isEmptyValue(*command(verb), "--out"))
            return wrongUsage("--out needs a value");
        if (verb == Verb::devmode && m_background && command(verb)->count("--out") > 0)
            return wrongUsage("--background cannot be combined with --out");
        if (verb == Verb::create && !odEndsWithNoCase(odFromUtf8(m_file), OD_T(".pc3")))
            return wrongUsage("FILE must end in .pc3: " + quoted(m_file));

        Request result;
        result.verb = verb;
        result.name = OdString(odFromUtf8(m_name));
        result.file = OdString(odFromUtf8(m_file));
        result.json = m_json;
        result.full = m_full;
        result.background = m_background;
        result.isPrinter = m_isPrinter;
        result.paper = OdString(odFromUtf8(m_paper));
        result.out = value(*command(Verb::devmode), "--out", m_out);
        result.searchPath = value(m_app, "--search-path", m_searchPath);
        result.language = value(m_app, "--language", m_language);
        result.module = value(m_app, "--module", m_module);
        result.settings = value(m_app, "--settings", m_settings);
        if (m_app.count("--wait") > 0)
        {
            const char* const end = m_wait.data() + m_wait.size();
            const auto [stop, error] = std::from_chars(m_wait.data(), end, result.wait);
            if (error != std::errc() || stop != end || result.wait < 1 || result.wait > longestWait)
                return wrongUsage("--wait needs a number of seconds from 1 to " + std::to_string(longestWait) + ": " +
                                  quoted(m_wait));
        }
        for (const std::string& text : m_reseller)
        {
            const auto setting = resellerSetting(odFromUtf8(text));
            if (!setting)
                return wrongUsage("--reseller needs KEY=VALUE: " + quoted(text));
            result.reseller.push_back(*setting);
        }
        return {std::move(result), exitYes, {}, {}};
    }

    static bool isEmptyValue(const CLI::App& app, const char* option)
    {
        return app.count(option) > 0 && app.get_option(option)->results().back().empty();
    }

    static std::optional<OdString> value(const CLI::App& app, const char* option, const std::string& text)
    {
        if (app.count(option) == 0)
            return std::nullopt;
        return OdString(odFromUtf8(text));
    }

    CLI::App m_app;
    std::vector<std::pair<Verb, CLI::App*>> m_commands;
    std::string m_name;
    std::string m_file;
    std::string m_out;
    std::string m_paper;
    std::string m_searchPath;
    std::string m_language;
    std::string m_module;
    std::string m_settings;
    std::string m_wait;
    std::vector<std::string> m_reseller;
    std::vector<std::string> m_behindDashes; // arguments after "--", whatever they look like
    bool m_json = false;
    bool m_full = false;
    bool m_background = false;
    bool m_isPrinter = false;
};
} // namespace

ParsedArguments parseArguments(const std::vector<OdString>& arguments)
{
    std::vector<std::string> texts;
    texts.reserve(arguments.size());
    for (const OdString& argument : arguments)
        texts.push_back(odToUtf8(argument.view()));
    return Parser().parse(std::move(texts));
}
} // namespace plothost
