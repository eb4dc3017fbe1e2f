# Completions of fish. What there is to complete is asked of the program itself.

function __kovrel_synopses
    kovrel --help 2>/dev/null | string replace -rf '^(usage:)? *kovrel ' ''
end

function __kovrel_commands
    __kovrel_synopses | string match -r '^[a-z][a-z-]*(?= |$)'
end

function __kovrel_options
    set -l words (commandline -opc)
    test (count $words) -ge 2; or return
    __kovrel_synopses | string match -r "^$words[2](?: .*)?\$" | string match -ar -- '--[a-z-]+'
end

function __kovrel_takes_file
    set -l words (commandline -opc)
    test (count $words) -ge 2; and __kovrel_synopses | string match -rq "^$words[2] FILE"
end

function __kovrel_modes
    kovrel --help 2>/dev/null | string replace -rf '^ *MODE: ' '' | string replace -ar '\([^)]*\)' '' |
        string split '|' | string trim
end

function __kovrel_keys
    kovrel preferences list 2>/dev/null | string replace -r ' = .*' ''
end

# __kovrel_at COMMAND COUNT : whether COUNT words of that command are there.
function __kovrel_at
    set -l words (commandline -opc)
    test (count $words) -eq (math $argv[2] + 1); and test "$words[2]" = $argv[1]
end

set -l first 'test (count (commandline -opc)) -eq 1'
complete -c kovrel -f
complete -c kovrel -n $first -a '(__kovrel_commands) --background --help --version'
complete -c kovrel -n '__kovrel_at capture 1' -a '(__kovrel_modes)'
complete -c kovrel -n '__kovrel_at preferences 1' -a 'list get set reset'
complete -c kovrel -n '__kovrel_at preferences 2' -a '(__kovrel_keys)'
complete -c kovrel -n 'string match -q -- "-*" (commandline -ct)' -a '(__kovrel_options)'
complete -c kovrel -n 'test (commandline -opc)[-1] = --output' -F
complete -c kovrel -n '__kovrel_takes_file' -F
