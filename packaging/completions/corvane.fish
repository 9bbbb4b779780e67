# Completion of corvane for fish.
complete -c corvane -f -a '(__fish_complete_directories)'
complete -c corvane -s h -l help -d 'Show help'
complete -c corvane -s v -l version -d 'Show the version'
