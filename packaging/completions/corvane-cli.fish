# Completion of corvane-cli for fish.

set -l commands scan map breakdown snapshots cleanup apps duplicates large old protected remove help
set -l none "not __fish_seen_subcommand_from $commands"

complete -c corvane-cli -f
complete -c corvane-cli -s h -l help -d 'Show help'
complete -c corvane-cli -l json -d 'Print one JSON document instead of a table'
complete -c corvane-cli -l units -x -a 'decimal binary bytes' -d 'Show sizes in these units'
complete -c corvane-cli -l color -x -a 'auto always never' -d 'Use colors'
complete -c corvane-cli -l no-progress -d 'Show no progress on the terminal'
complete -c corvane-cli -n $none -s V -l version -d 'Show the version'

complete -c corvane-cli -n $none -a scan -d 'Show where the space in a folder went'
complete -c corvane-cli -n $none -a map -d 'Lay out a folder as a treemap'
complete -c corvane-cli -n $none -a breakdown -d 'Explain where the space on the whole disk went'
complete -c corvane-cli -n $none -a snapshots -d 'List the snapshots that the system keeps of the disk'
complete -c corvane-cli -n $none -a cleanup -d 'Measure caches and other folders that could be cleaned up'
complete -c corvane-cli -n $none -a apps -d 'List apps, the data they keep, and what deleted ones left behind'
complete -c corvane-cli -n $none -a duplicates -d 'Find files with the same contents'
complete -c corvane-cli -n $none -a large -d 'List the large files in a folder'
complete -c corvane-cli -n $none -a old -d 'List the files in a folder that were last modified long ago'
complete -c corvane-cli -n $none -a protected -d 'Tell which paths are protected from removal'
complete -c corvane-cli -n $none -a remove -d 'Move items to the Trash, after asking'
complete -c corvane-cli -n $none -a help -d 'Show help, for one command or for all'
complete -c corvane-cli -n $none -a '(__fish_complete_directories)'

complete -c corvane-cli -n '__fish_seen_subcommand_from scan map duplicates large old' -a '(__fish_complete_directories)'
complete -c corvane-cli -n '__fish_seen_subcommand_from protected remove' -F
complete -c corvane-cli -n '__fish_seen_subcommand_from help' -a 'scan map breakdown snapshots cleanup apps duplicates large old protected remove'

complete -c corvane-cli -n '__fish_seen_subcommand_from scan map duplicates large old' -l exclude -x \
    -d 'Leave out items that match a pattern'
complete -c corvane-cli -n '__fish_seen_subcommand_from scan map duplicates large old' -l one-file-system \
    -d 'Leave out everything mounted in the folder'
complete -c corvane-cli -n '__fish_seen_subcommand_from scan map large old' -l apparent -d 'Count the lengths of files'
complete -c corvane-cli -n '__fish_seen_subcommand_from scan duplicates large old' -l top -x -a '5 10 50' \
    -d 'Show at most that many'
complete -c corvane-cli -n '__fish_seen_subcommand_from scan' -l depth -x -a '1 2 3' -d 'Show a tree of that many levels'
complete -c corvane-cli -n '__fish_seen_subcommand_from scan' -l files -d 'Show how many files each item contains'
complete -c corvane-cli -n '__fish_seen_subcommand_from scan' -l sort -x -a 'size files name modified' -d 'Order items by'
complete -c corvane-cli -n '__fish_seen_subcommand_from large old' -l sort -x -a 'size name modified' -d 'Order files by'

complete -c corvane-cli -n '__fish_seen_subcommand_from map' -l size -x -a '900x600 1600x1000 1920x1080' \
    -d 'The size of the map in points'
complete -c corvane-cli -n '__fish_seen_subcommand_from map' -l svg -r -F -d 'Write the map as an SVG picture'

complete -c corvane-cli -n '__fish_seen_subcommand_from breakdown' -l scan -x -a '(__fish_complete_directories)' \
    -d 'Scan this folder first, so that it is explained too'

complete -c corvane-cli -n '__fish_seen_subcommand_from remove' -l permanently \
    -d 'Delete for good instead of moving to the Trash'
complete -c corvane-cli -n '__fish_seen_subcommand_from remove' -s y -l yes -d 'Do not ask'
complete -c corvane-cli -n '__fish_seen_subcommand_from remove' -l dry-run -d 'Show what would be done, without doing it'

complete -c corvane-cli -n '__fish_seen_subcommand_from large old' -l min -x -a '1000000 10000000 100000000 1000000000' \
    -d 'Only files of at least that many bytes'
complete -c corvane-cli -n '__fish_seen_subcommand_from large old' -l name -x -d 'Only files with that text in the name'
complete -c corvane-cli -n '__fish_seen_subcommand_from large' -l type -x \
    -a 'video image audio archive diskImage app document code other' -d 'Only files of that type'
complete -c corvane-cli -n '__fish_seen_subcommand_from old' -l months -x -a '6 12 24 36 60' \
    -d 'Only files not modified for that many months'
