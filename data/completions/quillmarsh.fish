complete -c quillmarsh -f
complete -c quillmarsh -n __fish_use_subcommand -a launch -d 'Open the history'
complete -c quillmarsh -n __fish_use_subcommand -a swop -d 'Exchange the selection with a clip'
complete -c quillmarsh -n __fish_use_subcommand -a preferences -d 'Open the preferences'
complete -c quillmarsh -n __fish_use_subcommand -a clear-all -d 'Delete every clip'
complete -c quillmarsh -n __fish_use_subcommand -a quit -d 'End the running instance'
complete -c quillmarsh -s h -l help -d 'Show the commands'
complete -c quillmarsh -s V -l version -d 'Show the version'
