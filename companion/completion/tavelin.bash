# Completion of tavelin for bash. Made by scripts/make_companion_texts.

_tavelin_names()
{
    echo 'check run explain info lint schema ready normalise batch diff convert report plot page help'
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
    ready) echo '--for -o --output -f --force --as --profile --station --observer --band --magnitude --no-magnitudes --zero-is-a-magnitude --numbers --allow-artificial --rename --new-names --time-decimals --ra-decimals --dec-decimals --creation-date --leave-out --dry-run --how-to-send --max --json -q --quiet -v --verbose --color --progress --times -h --help' ;;
    normalise) echo '-o --output --from --time-system --accept-frame --apply-corrections --magnitude -f --force --json -q --quiet -v --verbose --color --progress --times -h --help' ;;
    batch) echo '--over --into --group --set --only-make -j --jobs --part --again --by-content --summary --failed --forget --time-limit --memory-limit --allow --anyway --verify --vomar --stop-after --json -q --quiet -v --verbose --color --progress --times -h --help' ;;
    diff) echo '--tolerance --time --angle --magnitude --by --as -c --changes -s --sums --json -q --quiet -v --verbose --color --progress --times -h --help' ;;
    convert) echo '--from --to --telescope --originator --frame --autoname --keep-task -f --force --allow --time-limit --memory-limit --verify --vomar --json -q --quiet -v --verbose --color --progress --times -h --help' ;;
    report) echo '--to --by --short-names --filter --telescope --originator --gap --exclude --only-track --make --keep-task -f --force --allow --time-limit --memory-limit --verify --vomar --json -q --quiet -v --verbose --color --progress --times -h --help' ;;
    plot) echo '-o --output --kind --object --degree --against --script --as -f --force --json -q --quiet -v --verbose --color --progress --times -h --help' ;;
    page) echo '-o --output --as --object -f --force --json -q --quiet -v --verbose --color --progress --times -h --help' ;;
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
    "ready --for") echo 'mpc ccsds ccsds.xml aavso ades ades.psv' ;;
    "ready --output" | "ready -o") echo '/' ;;
    "ready --as") echo '' ;;
    "ready --profile") echo '/' ;;
    "ready --station") echo '' ;;
    "ready --observer") echo '' ;;
    "ready --band") echo '' ;;
    "ready --magnitude") echo 'ensemble apparent instrumental' ;;
    "ready --rename") echo '/' ;;
    "ready --new-names") echo '' ;;
    "ready --time-decimals") echo '5 6' ;;
    "ready --ra-decimals") echo '2 3' ;;
    "ready --dec-decimals") echo '1 2' ;;
    "ready --creation-date") echo '' ;;
    "ready --max") echo '' ;;
    "ready --color") echo 'auto always never' ;;
    "ready --progress") echo 'auto plain none' ;;
    "normalise --output" | "normalise -o") echo '/' ;;
    "normalise --from") echo '' ;;
    "normalise --time-system") echo 'UTC TAI GPS TT' ;;
    "normalise --magnitude") echo '' ;;
    "normalise --color") echo 'auto always never' ;;
    "normalise --progress") echo 'auto plain none' ;;
    "batch --over") echo '' ;;
    "batch --into") echo '' ;;
    "batch --group") echo '' ;;
    "batch --set") echo '' ;;
    "batch --jobs" | "batch -j") echo '' ;;
    "batch --part") echo '' ;;
    "batch --forget") echo '' ;;
    "batch --time-limit") echo '' ;;
    "batch --memory-limit") echo '' ;;
    "batch --allow") echo '' ;;
    "batch --verify") echo 'count full none' ;;
    "batch --vomar") echo '/' ;;
    "batch --stop-after") echo '' ;;
    "batch --color") echo 'auto always never' ;;
    "batch --progress") echo 'auto plain none' ;;
    "diff --tolerance") echo '' ;;
    "diff --time") echo '' ;;
    "diff --angle") echo '' ;;
    "diff --magnitude") echo '' ;;
    "diff --by") echo 'object position' ;;
    "diff --as") echo '' ;;
    "diff --color") echo 'auto always never' ;;
    "diff --progress") echo 'auto plain none' ;;
    "convert --from") echo '' ;;
    "convert --to") echo 'mea telegram tdm ssmas mpc tdm.xml mag aavso' ;;
    "convert --telescope") echo '' ;;
    "convert --originator") echo '' ;;
    "convert --frame") echo '' ;;
    "convert --keep-task") echo '/' ;;
    "convert --allow") echo '' ;;
    "convert --time-limit") echo '' ;;
    "convert --memory-limit") echo '' ;;
    "convert --verify") echo 'count full none' ;;
    "convert --vomar") echo '/' ;;
    "convert --color") echo 'auto always never' ;;
    "convert --progress") echo 'auto plain none' ;;
    "report --to") echo 'mea telegram tdm ssmas mpc tdm.xml mag aavso' ;;
    "report --by") echo 'group object series all' ;;
    "report --filter") echo '' ;;
    "report --telescope") echo '' ;;
    "report --originator") echo '' ;;
    "report --gap") echo '' ;;
    "report --exclude") echo '' ;;
    "report --only-track") echo '' ;;
    "report --keep-task") echo '/' ;;
    "report --allow") echo '' ;;
    "report --time-limit") echo '' ;;
    "report --memory-limit") echo '' ;;
    "report --verify") echo 'count full none' ;;
    "report --vomar") echo '/' ;;
    "report --color") echo 'auto always never' ;;
    "report --progress") echo 'auto plain none' ;;
    "plot --output" | "plot -o") echo '/' ;;
    "plot --kind") echo 'light sky residuals' ;;
    "plot --object") echo '' ;;
    "plot --degree") echo '' ;;
    "plot --against") echo '/' ;;
    "plot --as") echo '' ;;
    "plot --color") echo 'auto always never' ;;
    "plot --progress") echo 'auto plain none' ;;
    "page --output" | "page -o") echo '/' ;;
    "page --as") echo '' ;;
    "page --object") echo '' ;;
    "page --color") echo 'auto always never' ;;
    "page --progress") echo 'auto plain none' ;;
    " --color") echo 'auto always never' ;;
    " --progress") echo 'auto plain none' ;;
    *) return 1 ;;
    esac
}

_tavelin_operands()
{
    case $1 in
    help) echo 'check run explain info lint schema ready normalise batch diff convert report plot page' ;;
    schema) echo 'task config result ades json batch check convert diff explain info lint normalise page plan plot ready receipt report run schema' ;;
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
