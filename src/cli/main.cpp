#include <cstdio>
#include <cstdlib>
#include <iostream>
#include <stdexcept>

#include "cli/Cli.h"

namespace aqcli {

std::map<std::string, Command>& commands() {
    static std::map<std::string, Command> all;
    return all;
}

Register::Register(Command c) { commands()[c.name] = std::move(c); }

int fail(const std::string& text) {
    std::cerr << "aqfm: " << text << "\n";
    return 1;
}

Args::Args(const std::vector<std::string>& argv, const std::vector<std::string>& valued,
           const std::vector<std::string>& flags) {
    auto listed = [](const std::vector<std::string>& names, const std::string& n) {
        for (const auto& v : names)
            if (v == n) return true;
        return false;
    };
    bool onlyPositional = false;
    for (std::size_t i = 0; i < argv.size(); ++i) {
        const std::string& a = argv[i];
        // A negative number is a positional, not an option.
        bool numeric = a.size() >= 2 && (std::isdigit(static_cast<unsigned char>(a[1])) || a[1] == '.');
        if (onlyPositional || a.size() < 2 || a[0] != '-' || numeric) {
            positional_.push_back(a);
            continue;
        }
        if (a == "--") {
            onlyPositional = true;
            continue;
        }
        std::string name = a, val;
        bool hasInline = false;
        if (auto eq = a.find('='); a.rfind("--", 0) == 0 && eq != std::string::npos) {
            name = a.substr(0, eq);
            val = a.substr(eq + 1);
            hasInline = true;
        }
        if (listed(valued, name)) {
            if (!hasInline) {
                if (i + 1 >= argv.size()) throw UsageError{"option " + name + " needs a value"};
                val = argv[++i];
            }
            values_[name] = val;
        } else if (listed(flags, name) && !hasInline) {
            flags_.push_back(name);
        } else {
            throw UsageError{"unknown option " + name};
        }
    }
}

bool Args::flag(const std::string& name) const {
    for (const auto& f : flags_)
        if (f == name) return true;
    return false;
}

std::optional<std::string> Args::value(const std::string& name) const {
    auto it = values_.find(name);
    if (it == values_.end()) return std::nullopt;
    return it->second;
}

std::string Args::required(const std::string& name) const {
    auto v = value(name);
    if (!v) throw UsageError{"missing " + name};
    return *v;
}

void Args::expectPositional(std::size_t n) const {
    if (positional_.size() != n)
        throw UsageError{"expected " + std::to_string(n) + " argument" + (n == 1 ? "" : "s") + ", got " +
                         std::to_string(positional_.size())};
}

double numberOption(const Args& a, const std::string& name, double fallback) {
    auto v = a.value(name);
    if (!v) return fallback;
    try {
        std::size_t used = 0;
        double d = std::stod(*v, &used);
        if (used != v->size()) throw std::invalid_argument("trailing");
        return d;
    } catch (const std::exception&) {
        throw UsageError{"option " + name + " needs a number, got \"" + *v + "\""};
    }
}

int intOption(const Args& a, const std::string& name, int fallback) {
    auto v = a.value(name);
    if (!v) return fallback;
    try {
        std::size_t used = 0;
        long long n = std::stoll(*v, &used, 0);
        if (used != v->size() || n < -2147483648LL || n > 2147483647LL) throw std::invalid_argument("range");
        return static_cast<int>(n);
    } catch (const std::exception&) {
        throw UsageError{"option " + name + " needs a whole number, got \"" + *v + "\""};
    }
}

}  // namespace aqcli

namespace {

// Breaks text into lines of at most 78 columns, each starting with `indent`.
std::string wrapped(const std::string& text, const std::string& indent) {
    std::string out, line;
    std::size_t pos = 0;
    while (pos < text.size()) {
        std::size_t end = text.find(' ', pos);
        if (end == std::string::npos) end = text.size();
        std::string word = text.substr(pos, end - pos);
        if (!line.empty() && indent.size() + line.size() + 1 + word.size() > 78) {
            out += indent + line + "\n";
            line.clear();
        }
        line += (line.empty() ? "" : " ") + word;
        pos = end + 1;
    }
    if (!line.empty()) out += indent + line + "\n";
    return out;
}

void printHelp() {
    std::cout << "usage: aqfm COMMAND [ARGS]\n\nAquarium File Manager's command-line tool.\n\nCommands:\n";
    for (const auto& [name, c] : aqcli::commands())
        std::cout << "  " << name << std::string(12 - std::min<std::size_t>(name.size(), 11), ' ') << c.summary << "\n";
    std::cout << "\n'aqfm COMMAND --help' tells more about a command, 'aqfm --help-all' about all of them.\n";
}

// Every command with its usage and details: the text the manual page is made from.
void printHelpAll() {
    std::cout << "usage: aqfm COMMAND [ARGS]\n       aqfm COMMAND --help\n       aqfm --help | --help-all | --version\n\n"
              << wrapped(
                     "Reads, writes and examines the pool files (*.aqp) and drifter DNA files (*.dna) of the "
                     "Aquarium simulator without a window, on the same code as Aquarium File Manager. Output is "
                     "UTF-8, one item a line. A path that starts with \"-\" follows \"--\".",
                     "")
              << "\nCommands:\n";
    for (const auto& [name, c] : aqcli::commands())
        std::cout << "  " << c.usage << "\n" << wrapped(c.details, "        ") << "\n";
    std::cout << "Exit status:\n"
              << wrapped("0 on success, 1 on a file or data error (its message on stderr), 2 on a usage error.", "  ")
              << "\n";
}

}  // namespace

int main(int argc, char** argv) {
    std::vector<std::string> args(argv + 1, argv + argc);
    if (args.empty() || args[0] == "--help" || args[0] == "-h" || args[0] == "help") {
        printHelp();
        return args.empty() ? 2 : 0;
    }
    if (args[0] == "--help-all") {
        printHelpAll();
        return 0;
    }
    if (args[0] == "--version") {
        std::cout << "aqfm (Aquarium File Manager) " << AQ_VERSION << "\n";
        return 0;
    }
    auto it = aqcli::commands().find(args[0]);
    if (it == aqcli::commands().end()) {
        std::cerr << "aqfm: unknown command \"" << args[0] << "\"; see aqfm --help\n";
        return 2;
    }
    const aqcli::Command& cmd = it->second;
    std::vector<std::string> rest(args.begin() + 1, args.end());
    for (const auto& a : rest)
        if (a == "--help" || a == "-h") {
            std::cout << "usage: " << cmd.usage << "\n\n" << wrapped(cmd.details, "");
            return 0;
        }
    try {
        aqcli::Args parsed(rest, cmd.valuedOptions, cmd.flagOptions);
        return cmd.run(parsed);
    } catch (const aqcli::UsageError& e) {
        std::cerr << "aqfm " << cmd.name << ": " << e.text << "\nusage: " << cmd.usage << "\n";
        return 2;
    } catch (const std::exception& e) {
        std::cerr << "aqfm " << cmd.name << ": " << e.what() << "\n";
        return 1;
    }
}
