# fish completion for panewright

function __panewright_command -d 'The command of the line so far, if any'
    set -l words (commandline -opc)
    test (count $words) -ge 2; and not string match -q -- '-*' $words[2]; and echo $words[2]
end

function __panewright_is_first
    test (count (commandline -opc)) -eq 1
end

function __panewright_is
    test "$(__panewright_command)" = $argv[1]
end

function __panewright_wants_name -d 'Whether the name of a state comes next'
    __panewright_is apply; or return
    set -l words (commandline -opc)[3..]
    set -l names 0
    while set -q words[1]
        switch $words[1]
            case --
                set names (math $names + (count $words[2..]))
                break
            case --application
                set -e words[1]
                set -q words[1]; or return 1
            case '-*'
            case '*'
                set names (math $names + 1)
        end
        set -e words[1]
    end
    test $names -eq 0
end

function __panewright_names -d 'The names of the states; what follows a tab would be a description'
    set -l words (commandline -opc)
    set -l program (string replace -r '^~' $HOME $words[1])
    set -l names ($program list --names 2>/dev/null | string match -r '^(?:[^\\\\]|\\\\[^t])+$')
    contains -- -- $words; or set names (string match -v -- '-*' $names)
    for name in $names
        printf '%b\0' $name
    end | string split0
end

complete -c panewright -f
complete -c panewright -s h -l help -d 'Print this and end'
complete -c panewright -n __panewright_is_first -s V -l version -d 'Print the version and end'
complete -c panewright -n __panewright_is_first -l background -d 'Open nothing if Panewright runs already'
complete -c panewright -n __panewright_is_first -a apply -d 'Put the focused window into a state'
complete -c panewright -n __panewright_is_first -a list -d 'Print the states'
complete -c panewright -n __panewright_is_first -a next-display -d 'Move the focused window to the next display'
complete -c panewright -n __panewright_is_first -a menu -d 'Open the menu'
complete -c panewright -n __panewright_is_first -a save -d 'Open the popover that saves the focused window'
complete -c panewright -n __panewright_is_first -a settings -d 'Open the settings'
complete -c panewright -n __panewright_is_first -a quit -d 'Quit Panewright'
complete -c panewright -n '__panewright_is apply' -l application -x -d 'Only a state saved from the application of that name'
complete -c panewright -n __panewright_wants_name -a '(__panewright_names)' -d 'Window state'
complete -c panewright -n '__panewright_is list' -l json -d 'As JSON, with all that a state holds'
complete -c panewright -n '__panewright_is list' -l names -d 'One name a line'
complete -c panewright -n '__panewright_is menu' -l flat -d 'The states of all applications one below the other'
