# Completion of qxpdu for fish.
complete -c qxpdu -f
complete -c qxpdu -s h -l help -d 'Say how to use the tool or the command'
complete -c qxpdu -n __fish_use_subcommand -l version -d 'Say which version this is'
complete -c qxpdu -n __fish_use_subcommand -a encode -d 'Make SMS-SUBMIT PDUs of a text'
complete -c qxpdu -n __fish_use_subcommand -a 'count explain' -d 'Tell how a text would go out'
complete -c qxpdu -n __fish_use_subcommand -a decode -d 'Show the fields and the text of SMS PDUs'
complete -c qxpdu -n __fish_use_subcommand -a inspect -d 'Show what each octet of SMS PDUs means'
complete -c qxpdu -n __fish_use_subcommand -a cell -d 'Show cell broadcast pages'
complete -c qxpdu -n __fish_use_subcommand -a text -d 'Decode texts in GSM codes or in UCS2 hex'
complete -c qxpdu -n __fish_use_subcommand -a ucs2 -d 'Convert between text and UCS2 hex'
complete -c qxpdu -n __fish_use_subcommand -a gsm -d 'Convert between text and GSM codes'

complete -c qxpdu -n 'not __fish_use_subcommand' -l json -d 'Write the results as a JSON array'

set -l stream '__fish_seen_subcommand_from encode count explain decode inspect cell; and not __fish_seen_subcommand_from ucs2 gsm'
complete -c qxpdu -n $stream -l jsonl -d 'Write the results as JSON Lines'
complete -c qxpdu -n $stream -s j -l threads -x -d 'Work on so many threads'
complete -c qxpdu -n $stream -l line-buffered -d 'Write each result as soon as it is there'
complete -c qxpdu -n $stream -l progress -d 'Show the progress'
complete -c qxpdu -n $stream -l no-progress -d 'Do not show the progress'

complete -c qxpdu -n '__fish_seen_subcommand_from decode inspect cell; and not __fish_seen_subcommand_from ucs2 gsm' \
    -l file -r -F -d 'Read the lines of this file'

set -l encode '__fish_seen_subcommand_from encode; and not __fish_seen_subcommand_from ucs2 gsm'
complete -c qxpdu -n $encode -l to -x -d 'Destination number'
complete -c qxpdu -n '__fish_seen_subcommand_from decode inspect' -l smsc -x -a 'yes no' -d 'Whether a service centre stands before the TPDU'
complete -c qxpdu -n $encode -l smsc -x -d 'Service-centre number'
complete -c qxpdu -n $encode -l class -x -a '0 1 2 3' -d 'Message class'
complete -c qxpdu -n $encode -l validity -x -a '1h 2h 6h 12h 1d 1w max' -d 'Validity period'
complete -c qxpdu -n $encode -l status-report -d 'Ask for a status report'
complete -c qxpdu -n $encode -l reject-duplicates -d 'Have duplicates rejected'
complete -c qxpdu -n $encode -l reply-path -d 'Set the reply path'
complete -c qxpdu -n $encode -l reference -x -d 'Message reference, 0 to 255'
complete -c qxpdu -n $encode -l strict -d 'Turn warnings into errors'
complete -c qxpdu -n $encode -l at -d 'Put the command for the modem before each PDU'
complete -c qxpdu -n '__fish_seen_subcommand_from encode count explain; and not __fish_seen_subcommand_from ucs2 gsm' \
    -l lines -d 'Each line is a text of its own'
complete -c qxpdu -n '__fish_seen_subcommand_from encode count explain gsm' -l greek -d 'Send Greek letters as capitals'

complete -c qxpdu -n '__fish_seen_subcommand_from cell inspect' -l type -x -a 'gsm umts etws' -d 'What the octets are'
set -l decode '__fish_seen_subcommand_from decode cell; and not __fish_seen_subcommand_from ucs2 gsm'
complete -c qxpdu -n '__fish_seen_subcommand_from decode inspect; and not __fish_seen_subcommand_from ucs2 gsm' -l no-smsc -d 'The PDUs begin with the TPDU'
complete -c qxpdu -n '__fish_seen_subcommand_from decode inspect; and not __fish_seen_subcommand_from ucs2 gsm' -l direction -x -a 'to-mobile from-mobile' -d 'Which way the PDUs go'
complete -c qxpdu -n '__fish_seen_subcommand_from decode inspect cell; and not __fish_seen_subcommand_from ucs2 gsm' -l as -x -a libQX_Encoding -d 'Show the reading of libQX_Encoding alone'
complete -c qxpdu -n '__fish_seen_subcommand_from decode inspect cell; and not __fish_seen_subcommand_from ucs2 gsm' -l strict -d 'Turn warnings into errors'
complete -c qxpdu -n '__fish_seen_subcommand_from decode; and not __fish_seen_subcommand_from ucs2 gsm' -l ignore-time-zone -d 'Show times without their zone'
complete -c qxpdu -n $decode -l join -d 'Put the parts of messages together'
complete -c qxpdu -n $decode -l each -d 'Show each part by itself as well'
complete -c qxpdu -n $decode -l brief -d 'A line for each message'
complete -c qxpdu -n $decode -l columns -x -d 'A table with these columns' -a 'address time direction type part text'
complete -c qxpdu -n $decode -l input-column -x -d 'The PDU is column N of a row'
complete -c qxpdu -n $decode -l no-heading -d 'The table has no heading'

complete -c qxpdu -n '__fish_seen_subcommand_from inspect' -l cell -d 'The inputs are of cell broadcast'
complete -c qxpdu -n '__fish_seen_subcommand_from inspect' -l color -x -a 'auto always never' -d 'Colours per field'

complete -c qxpdu -n '__fish_seen_subcommand_from text' -l alphabet -x -a '0 2' -d 'Alphabet of the texts'
complete -c qxpdu -n '__fish_seen_subcommand_from text' -l verbose -d 'Show the log line of the decoder'

complete -c qxpdu -n '__fish_seen_subcommand_from ucs2 gsm' -a 'encode decode'
complete -c qxpdu -n '__fish_seen_subcommand_from ucs2' -a check
