# Completion of tavelin for bash. Made by scripts/make_companion_texts.

_tavelin_names()
{
    echo 'check run explain info lint schema plot help'
}

_tavelin_options()
{
    case $1 in
    check) echo '--quick --strict --plan --for --only --ignore --folder --json -q --quiet -v --verbose --color --progress --times -h --help' ;;
    run) echo '-j --jobs --time-limit --memory-limit --allow --anyway --verify --joblog --resume -f --force --vomar --stop-after --json -q --quiet -v --verbose --color --progress --times -h --help' ;;
    explain) echo '--as --list --markdown --json -q --quiet -v --verbose --color --progress --times -h --help' ;;
    info) echo '--as --tracks --table --get --strict --json -q --quiet -v --verbose --color --progress --times -h --help' ;;
    lint) echo '--as --for --layer --schema --max --json -q --quiet -v --verbose --color --progress --times -h --help' ;;
    schema) echo '--list --json -q --quiet -v --verbose --color --progress --times -h --help' ;;
    plot) echo '-o --output --kind --object --degree --against --script --as -f --force --json -q --quiet -v --verbose --color --progress --times -h --help' ;;
    *) echo '--json -q --quiet -v --verbose --color --progress --times -h --help --version' ;;
    esac
}

_tavelin_values()
{
    case "$1 $2" in
    "check --for") echo 'mpc ccsds aavso ades' ;;
    "check --only") echo '' ;;
    "check --ignore") echo '' ;;
    "check --folder") echo '/' ;;
    "check --color") echo 'auto always never' ;;
    "check --progress") echo 'auto plain none' ;;
    "run --jobs" | "run -j") echo '' ;;
    "run --time-limit") echo '' ;;
    "run --memory-limit") echo '' ;;
    "run --allow") echo '' ;;
    "run --verify") echo 'count full none' ;;
    "run --joblog") echo '/' ;;
    "run --vomar") echo '/' ;;
    "run --stop-after") echo '' ;;
    "run --color") echo 'auto always never' ;;
    "run --progress") echo 'auto plain none' ;;
    "explain --as") echo 'task result code finding format' ;;
    "explain --color") echo 'auto always never' ;;
    "explain --progress") echo 'auto plain none' ;;
    "info --as") echo '' ;;
    "info --get") echo '' ;;
    "info --color") echo 'auto always never' ;;
    "info --progress") echo 'auto plain none' ;;
    "lint --as") echo '' ;;
    "lint --for") echo 'mpc ccsds aavso ades' ;;
    "lint --layer") echo 'reader person receiver' ;;
    "lint --schema") echo '/' ;;
    "lint --max") echo '' ;;
    "lint --color") echo 'auto always never' ;;
    "lint --progress") echo 'auto plain none' ;;
    "schema --color") echo 'auto always never' ;;
    "schema --progress") echo 'auto plain none' ;;
    "plot --output" | "plot -o") echo '' ;;
    "plot --kind") echo 'light sky residuals' ;;
    "plot --object") echo '' ;;
    "plot --degree") echo '' ;;
    "plot --against") echo '/' ;;
    "plot --as") echo '' ;;
    "plot --color") echo 'auto always never' ;;
    "plot --progress") echo 'auto plain none' ;;
    " --color") echo 'auto always never' ;;
    " --progress") echo 'auto plain none' ;;
    *) return 1 ;;
    esac
}

_tavelin_operands()
{
    case $1 in
    help) echo 'check run explain info lint schema plot' ;;
    schema) echo 'task config result ades json check explain info lint plot run schema' ;;
    *) return 1 ;;
    esac
}

# The name of the subcommand: the first word that is no option and no value of one. Bash cuts --color=never into
# three words.
_tavelin_subcommand()
{
    local i
    for ((i = 1; i < COMP_CWORD; ++i)); do
        case ${COMP_WORDS[i]} in
        --color | --progress) ((++i)); [[ ${COMP_WORDS[i]} != '=' ]] || ((++i)) ;;
        -*) ;;
        *) echo "${COMP_WORDS[i]}"; return ;;
        esac
    done
}

_tavelin()
{
    local word=${COMP_WORDS[COMP_CWORD]} option=${COMP_WORDS[COMP_CWORD - 1]} subcommand words
    if [[ $word == '=' ]]; then
        word=
    elif [[ $option == '=' ]]; then
        option=${COMP_WORDS[COMP_CWORD - 2]}
    fi
    subcommand=$(_tavelin_subcommand)
    if [[ $option == -* ]] && words=$(_tavelin_values "$subcommand" "$option"); then
        [[ $words != / ]] || { mapfile -t COMPREPLY < <(compgen -f -- "$word"); return; }
    elif [[ $word == -* ]]; then
        words=$(_tavelin_options "$subcommand")
    elif [[ -z $subcommand ]]; then
        words=$(_tavelin_names)
    elif ! words=$(_tavelin_operands "$subcommand"); then
        mapfile -t COMPREPLY < <(compgen -f -- "$word")
        return
    fi
    mapfile -t COMPREPLY < <(compgen -W "$words" -- "$word")
}

complete -o filenames -F _tavelin tavelin
