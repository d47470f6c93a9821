#pragma once
// The aqfm command-line tool: every command registers itself with a name, a
// one-line summary, its usage and a function. Exit codes: 0 success, 1 file or
// data error, 2 usage error.
#include <functional>
#include <map>
#include <optional>
#include <string>
#include <vector>

namespace aqcli {

struct UsageError {
    std::string text;
};

// Parsed arguments: positionals in order, options by name ("-o", "--seed").
class Args {
public:
    // `valued` lists the options that take a value, `flags` those that don't; any
    // other option is a usage error. "--" ends the options (for paths that start with "-").
    Args(const std::vector<std::string>& argv, const std::vector<std::string>& valued,
         const std::vector<std::string>& flags);
    const std::vector<std::string>& positional() const { return positional_; }
    bool flag(const std::string& name) const;
    std::optional<std::string> value(const std::string& name) const;
    std::string required(const std::string& name) const;  // throws UsageError
    // Throws UsageError unless there are exactly `n` positionals.
    void expectPositional(std::size_t n) const;

private:
    std::vector<std::string> positional_;
    std::map<std::string, std::string> values_;
    std::vector<std::string> flags_;
};

struct Command {
    std::string name;
    std::string summary;
    std::string usage;
    std::function<int(const Args&)> run;
    std::vector<std::string> valuedOptions;
    std::vector<std::string> flagOptions;
    // What the command prints or writes and what its options mean, for
    // "aqfm COMMAND --help", "aqfm --help-all" and the manual page made from it.
    std::string details;
};

// Adds a command at static-initialisation time.
struct Register {
    explicit Register(Command c);
};

std::map<std::string, Command>& commands();

// Prints a data or file error on stderr and returns 1.
int fail(const std::string& text);

// Parses a number option; throws UsageError when it is not one.
double numberOption(const Args& a, const std::string& name, double fallback);
int intOption(const Args& a, const std::string& name, int fallback);

}  // namespace aqcli
