# Completion of corvane-cli for fish.

set -l commands scan map breakdown snapshots cleanup apps duplicates large old protected remove help
set -l none "not __fish_seen_subcommand_from $commands"

complete -c corvane-cli -f
complete -c corvane-cli -s h -l help -d 'Show help'
complete -c corvane-cli -l json -d 'Print one JSON document instead of a table'
complete -c corvane-cli -n $none -s V -l version -d 'Show the version'

complete -c corvane-cli -n $none -a scan -d 'Show where the space of a folder went'
complete -c corvane-cli -n $none -a map -d 'Lay a folder out as a treemap'
complete -c corvane-cli -n $none -a breakdown -d 'Explain where the space of the whole disk went'
complete -c corvane-cli -n $none -a snapshots -d 'List the snapshots that the system keeps of the disk'
complete -c corvane-cli -n $none -a cleanup -d 'Measure caches and other folders that could be cleaned up'
complete -c corvane-cli -n $none -a apps -d 'List the apps, the data they keep, and what deleted ones left behind'
complete -c corvane-cli -n $none -a duplicates -d 'Find files with the same contents'
complete -c corvane-cli -n $none -a large -d 'List the large files of a folder'
complete -c corvane-cli -n $none -a old -d 'List the files of a folder that were not modified for long'
complete -c corvane-cli -n $none -a protected -d 'Tell which paths would never be removed'
complete -c corvane-cli -n $none -a remove -d 'Move items to the Trash, after asking'
complete -c corvane-cli -n $none -a help -d 'Show help, of one command where one is given'
complete -c corvane-cli -n $none -a '(__fish_complete_directories)'

complete -c corvane-cli -n '__fish_seen_subcommand_from scan map duplicates large old' -a '(__fish_complete_directories)'
complete -c corvane-cli -n '__fish_seen_subcommand_from protected remove' -F
complete -c corvane-cli -n '__fish_seen_subcommand_from help' -a 'scan map breakdown snapshots cleanup apps duplicates large old protected remove'

complete -c corvane-cli -n '__fish_seen_subcommand_from map' -l size -x -a '900x600 1600x1000 1920x1080' \
    -d 'The size of the map in points'
complete -c corvane-cli -n '__fish_seen_subcommand_from map' -l svg -r -F -d 'Write the map as a picture'

complete -c corvane-cli -n '__fish_seen_subcommand_from breakdown' -l scan -x -a '(__fish_complete_directories)' \
    -d 'Scan this folder first, so that it is explained too'

complete -c corvane-cli -n '__fish_seen_subcommand_from remove' -l permanently \
    -d 'Delete for good instead of moving to the Trash'
complete -c corvane-cli -n '__fish_seen_subcommand_from remove' -s y -l yes -d 'Do not ask'

complete -c corvane-cli -n '__fish_seen_subcommand_from large old' -l min -x -a '1000000 10000000 100000000 1000000000' \
    -d 'Of at least that many bytes'
complete -c corvane-cli -n '__fish_seen_subcommand_from large old' -l name -x -d 'With that text in the name'
complete -c corvane-cli -n '__fish_seen_subcommand_from large' -l type -x \
    -a 'video image audio archive diskImage app document code other' -d 'Of that type'
complete -c corvane-cli -n '__fish_seen_subcommand_from old' -l months -x -a '6 12 24 36 60' \
    -d 'Not modified for that many months'
