# Completions of fish. What there is to complete is asked of the program itself.

function __kovrel_candidates
    set -l words (commandline -opc)
    set -l candidates (kovrel --complete $words[2..] (commandline -ct) 2>/dev/null)
    switch "$candidates"
        case '<files>'
            __fish_complete_path (commandline -ct)
        case '<settings>'
            kovrel preferences list 2>/dev/null | string replace -r ' = .*' ''
        case '*'
            string join \n -- $candidates
    end
end

complete -c kovrel -f -a '(__kovrel_candidates)'
