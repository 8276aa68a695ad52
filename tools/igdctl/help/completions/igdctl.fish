# Completion of igdctl for fish. igdctl itself knows the words.

function __igdctl_words
    set -l words (commandline -opc)
    set -l current (commandline -ct)
    for reply in (command $words[1] __complete line -- $words[2..-1] "$current" 2>/dev/null)
        if test "$reply" = :files
            __fish_complete_path "$current"
        else
            printf '%s\n' "$reply"
        end
    end
end

complete -c igdctl -f -a '(__igdctl_words)'
