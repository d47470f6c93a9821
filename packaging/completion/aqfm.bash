# bash completion for aqfm. The commands and each command's options are read from
# aqfm's own help, so they never fall behind the program; FILE-like arguments complete
# pool files, FOLDER folders, and OUT pool files (DNA files for "aqfm dna").

_aqfm() {
    local cur prev words cword
    _init_completion || return

    if ((cword == 1)); then
        local commands
        commands=$("${words[0]}" --help 2>/dev/null | sed -n 's/^  \([a-z]\{1,\}\) .*/\1/p')
        COMPREPLY=($(compgen -W "$commands --help --help-all --version" -- "$cur"))
        return
    fi

    local command=${words[1]} usage
    usage=$("${words[0]}" "$command" --help 2>/dev/null | sed -n '1s/^usage: aqfm [a-z]* *//p')
    [[ -n $usage ]] || return
    # The usage as words, brackets and bars dropped: "-o OUT" says -o takes a value.
    local -a usageWords
    read -r -a usageWords <<<"${usage//[][|]/ }"

    local outExt=aqp
    [[ $command == dna ]] && outExt=dna
    local i
    for ((i = 0; i < ${#usageWords[@]}; i++)); do
        if [[ ${usageWords[i]} == "$prev" && ${usageWords[i]} == -* ]]; then
            case ${usageWords[i + 1]} in
            OUT) _filedir "$outExt" ;;
            POOL) _filedir aqp ;;
            -* | "") break ;;
            esac
            return
        fi
    done

    if [[ $cur == -* ]]; then
        COMPREPLY=($(compgen -W "$(printf '%s\n' "${usageWords[@]}" | grep -- '^-') --help" -- "$cur"))
        return
    fi

    # Which positional is this? Count the words before it that are not options or
    # option values.
    local -a places=()
    for ((i = 0; i < ${#usageWords[@]}; i++)); do
        if [[ ${usageWords[i]} == -* ]]; then
            [[ ${usageWords[i + 1]} != -* && -n ${usageWords[i + 1]} ]] && ((i++))
        else
            places+=("${usageWords[i]}")
        fi
    done
    local n=0 j
    for ((j = 2; j < cword; j++)); do
        if [[ ${words[j]} == -* ]]; then
            for ((i = 0; i < ${#usageWords[@]}; i++)); do
                [[ ${usageWords[i]} == "${words[j]}" && -n ${usageWords[i + 1]} && ${usageWords[i + 1]} != -* ]] && ((j++)) && break
            done
        else
            ((n++))
        fi
    done
    local place=${places[n]:-${places[-1]:-}}
    [[ $n -ge ${#places[@]} && $place != *... ]] && return
    case $place in
    FOLDER) _filedir -d ;;
    FILE | BASE | OTHER | FIRST | POOL) _filedir aqp ;;
    esac
} &&
    complete -F _aqfm aqfm
