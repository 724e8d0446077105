#compdef panewright
# zsh completion for panewright

# The names of the states, of $program; with those that begin with - only behind --.
_panewright_names() {
    local -a names
    names=("${(@g::)${(@f)$(_call_program names $program list --names 2>/dev/null)}}")
    names=("${(@)names:#}")
    (( ${words[(I)--]} )) || names=("${(@)names:#-*}")
    local expl
    _wanted states expl 'window state' compadd -a names
}

_panewright() {
    local curcontext=$curcontext state line program=$words[1]
    local -a commands
    commands=(
        'apply:put the focused window into a state'
        'list:print the states'
        'next-display:move the focused window to the next display'
        'menu:open the menu'
        'save:open the popover that saves the focused window'
        'settings:open the settings'
        'quit:quit Panewright'
    )
    local -a help
    help=('(- *)'{-h,--help}'[print this and end]')
    _arguments -C $help \
        '(- *)'{-V,--version}'[print the version and end]' \
        '--background[open nothing if Panewright runs already]' \
        '1: :->command' '*:: :->arguments' && return
    case $state in
    command) _describe -t commands command commands ;;
    arguments)
        curcontext=${curcontext%:*}-$words[1]:
        case $words[1] in
        apply)
            _arguments -S $help \
                '--application=[only a state saved from the application of that name]:application: ' \
                '1:window state:_panewright_names'
            ;;
        list)
            _arguments $help '(--names)--json[as JSON, with all that a state holds]' \
                '(--json)--names[one name a line]'
            ;;
        menu) _arguments $help '--flat[the states of all applications one below the other]' ;;
        *) _arguments $help ;;
        esac
        ;;
    esac
}

_panewright "$@"
