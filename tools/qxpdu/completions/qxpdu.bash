# Completion of qxpdu for bash.
_qxpdu() {
    local current=${COMP_WORDS[COMP_CWORD]} previous=${COMP_WORDS[COMP_CWORD - 1]} command="" word words=""
    local stream="--json --jsonl -j --threads --line-buffered --progress --no-progress"
    for word in "${COMP_WORDS[@]:1:COMP_CWORD-1}"; do
        case $word in
            encode | count | explain | decode | check | inspect | cell | text | ucs2 | gsm) command="${command:+$command }$word" ;;
        esac
    done
    case $previous in
        --class) words="0 1 2 3" ;;
        --validity) words="1h 2h 6h 12h 1d 1w max" ;;
        --alphabet)
            words="gsm ucs2"
            [[ $command == encode ]] && words="$words 8bit"
            [[ $command == text ]] && words="0 2"
            ;;
        --language) words="tr es pt bn gu hi kn ml or pa ta te ur all" ;;
        --port-bits | --concat-bits) words="8 16" ;;
        --validity-format) words="relative enhanced absolute" ;;
        --color) words="auto always never" ;;
        --direction) words="to-mobile from-mobile" ;;
        --as) words="libQX_Encoding" ;;
        --type)
            words="gsm umts etws"
            [[ $command == encode ]] && words="submit deliver status-report command deliver-report submit-report"
            ;;
        --columns) words="address time direction type part text" ;;
        --file)
            mapfile -t COMPREPLY < <(compgen -f -- "$current")
            return
            ;;
        --smsc)
            [[ $command == encode ]] && return
            words="yes no"
            ;;
        --input-column | --to | --from | --data | --port | --concat-reference | --pid | --reference | --time | --discharge-time | --status | --failure-cause | --command-type | --message-number | -j | --threads) return ;;
        *)
            case $command in
                "") words="encode count explain decode inspect cell text ucs2 gsm --version" ;;
                encode)
                    words="--type --to --from --smsc --alphabet --language --replace --data --class --port --port-bits"
                    words="$words --concat-reference --concat-bits --pid --validity --validity-format --single-shot"
                    words="$words --status-report --reject-duplicates --reply-path --reference --time --discharge-time"
                    words="$words --status --for-command --more-messages --loop-prevention --failure-cause"
                    words="$words --command-type --message-number --as --greek --strict --at --lines $stream"
                    ;;
                count | explain) words="--language --alphabet --replace --concat-bits --port --port-bits --as --greek --lines $stream" ;;
                decode) words="--file --smsc --no-smsc --direction --as --strict --ignore-time-zone --join --each --brief --columns --input-column --no-heading --each-line $stream" ;;
                inspect) words="--cell --type --file --smsc --no-smsc --direction --as --strict --color $stream" ;;
                "cell encode") words="--id --scope --code --update --serial --language --alphabet --class --umts --lines $stream" ;;
                cell) words="encode --file --type --as --strict --join --each --brief --columns --input-column --no-heading --each-line $stream" ;;
                text) words="--alphabet --verbose --json" ;;
                ucs2) words="encode decode check" ;;
                gsm) words="encode decode" ;;
                "gsm "*) words="--greek --json" ;;
                "ucs2 "*) words="--json" ;;
            esac
            words="$words -h --help"
            ;;
    esac
    mapfile -t COMPREPLY < <(compgen -W "$words" -- "$current")
}
complete -F _qxpdu qxpdu
