# fish completion for aqfm: commands and options from aqfm's own help, pool files for
# its file arguments.
function __aqfm_usage
    set -l tokens (commandline -opc)
    aqfm $tokens[2] --help 2>/dev/null | string replace -rf '^usage: aqfm \S+ ?' ''
end

function __aqfm_options
    __aqfm_usage | string match -ar -- '--?[a-z][-a-z]*'
end

complete -c aqfm -f
complete -c aqfm -n __fish_use_subcommand -a '(aqfm --help | string replace -rf "^  ([a-z]+) +(.*)" "\$1\t\$2")'
complete -c aqfm -n __fish_use_subcommand -l help -d 'list the commands'
complete -c aqfm -n __fish_use_subcommand -l help-all -d 'every command with its options'
complete -c aqfm -n __fish_use_subcommand -l version -d "print aqfm's version"
complete -c aqfm -n 'not __fish_use_subcommand; and string match -q -- "-*" (commandline -ct)' -a '(__aqfm_options)'
complete -c aqfm -n 'not __fish_use_subcommand; and __fish_seen_subcommand_from dna' -a '(__fish_complete_suffix .dna)'
complete -c aqfm -n 'not __fish_use_subcommand' -a '(__fish_complete_suffix .aqp)'
