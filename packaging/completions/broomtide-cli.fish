# Fish completion for broomtide-cli.

set -l without_command 'not __fish_seen_subcommand_from scan clean history'
set -l with_folder '__fish_seen_subcommand_from scan clean'
set -l scanning '__fish_seen_subcommand_from scan'
set -l cleaning '__fish_seen_subcommand_from clean'

complete -c broomtide-cli -f
complete -c broomtide-cli -s h -l help -d 'Print a summary and exit'
complete -c broomtide-cli -n $without_command -l version -d 'Print the version and exit'
complete -c broomtide-cli -n $without_command -a scan -d 'Find what can go and print it'
complete -c broomtide-cli -n $without_command -a clean -d 'Move what can go to the Trash, after asking'
complete -c broomtide-cli -n $without_command -a history -d 'Print what was cleaned, newest first'

complete -c broomtide-cli -n $with_folder -a '(__fish_complete_directories)'
complete -c broomtide-cli -n $with_folder -l mode -x -d 'What to look for' -a "
    project\t'A folder of projects'
    caches\t'Developer caches under a home folder'
    downloads\t'Old files in a Downloads folder'"
complete -c broomtide-cli -n $scanning -l sort -x -d 'Order within each safety level' -a "
    size\t'The largest first'
    name\t'By name'
    date\t'The oldest first'"
complete -c broomtide-cli -n $scanning -l details -d 'Print the reasons and the way back for every item'
complete -c broomtide-cli -n $cleaning -l safe -d 'Select what is safe beyond doubt'
complete -c broomtide-cli -n $cleaning -l item -x -d 'Select this item instead, by its path below the folder'
complete -c broomtide-cli -n $cleaning -l dry-run -d 'Show what would be moved, and move nothing'
complete -c broomtide-cli -n $cleaning -l yes -d 'Do not ask'
complete -c broomtide-cli -n "not $without_command" -l json -d 'Print one JSON document instead of text'
