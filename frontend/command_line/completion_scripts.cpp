#include "frontend/command_line/completion_scripts.h"

namespace frontend {

namespace {

// The shell takes words apart at = and : as well; they are put together again, and taken off the answers.
constexpr std::string_view kBash = R"script(# Completion of lumoseminar for bash.
_lumoseminar() {
    local word line glued='' i
    local -a words=() lines=()
    for ((i = 1; i <= COMP_CWORD; i++)); do
        word=${COMP_WORDS[i]}
        if [[ $word == [=:]* || $glued ]] && ((${#words[@]})); then
            words[-1]+=$word
        else
            words+=("$word")
        fi
        [[ $word == *[=:] ]] && glued=1 || glued=''
    done
    word=${words[-1]-}
    local front=${word%"${word##*[=:]}"}
    mapfile -t lines < <("${COMP_WORDS[0]}" complete -- "${words[@]}" 2>/dev/null)
    COMPREPLY=()
    if [[ ${lines[0]-} == :files ]]; then
        mapfile -t COMPREPLY < <(compgen -f -- "${word#"$front"}")
        [[ $(type -t compopt) ]] && compopt -o filenames 2>/dev/null
        return
    fi
    for line in "${lines[@]}"; do
        # What a key stands for is shown where there is a choice.
        if ((${#lines[@]} > 1 && ${COMP_TYPE:-9} != 37)) && [[ $line == [0-9]*$'\t'?* ]]; then
            line=${line/$'\t'/ -- }
        else
            line=${line%%$'\t'*}
        fi
        COMPREPLY+=("${line#"$front"}")
    done
    if ((${#COMPREPLY[@]} == 1)) && [[ ${COMPREPLY[0]} == *= ]]; then
        compopt -o nospace 2>/dev/null
    fi
}
complete -F _lumoseminar lumoseminar
)script";

constexpr std::string_view kZsh = R"script(#compdef lumoseminar
# Completion of lumoseminar for zsh.
_lumoseminar() {
    local line text
    local -a lines plain described
    lines=("${(@f)$("${words[1]}" complete -- "${(@)words[2,CURRENT]}" 2>/dev/null)}")
    if [[ ${lines[1]} == :files ]]; then
        _files
        return
    fi
    for line in $lines; do
        text=${line%%$'\t'*}
        if [[ $text == *= ]]; then
            plain+=("$text")
        elif [[ $line == *$'\t'?* ]]; then
            described+=("${text//:/\\:}:${line#*$'\t'}")
        elif [[ -n $text ]]; then
            described+=("${text//:/\\:}")
        fi
    done
    (($#plain)) && compadd -S '' -- $plain
    (($#described)) && _describe -V value described
}
if [[ ${funcstack[1]} == _lumoseminar ]]; then
    _lumoseminar "$@"
else
    compdef _lumoseminar lumoseminar
fi
)script";

constexpr std::string_view kFish = R"script(# Completion of lumoseminar for fish.
function __lumoseminar_complete
    set -l words (commandline -opc) (commandline -ct)
    set -l program $words[1]
    set -e words[1]
    set -l lines ($program complete -- $words 2>/dev/null)
    if test "$lines[1]" = :files
        __fish_complete_path (commandline -ct)
    else if set -q lines[1]
        printf '%s\n' $lines
    end
end
complete -c lumoseminar -f -k -a '(__lumoseminar_complete)'
)script";

}  // namespace

std::string CompletionScript(std::string_view shell) {
    if (shell == "zsh") return std::string(kZsh);
    if (shell == "fish") return std::string(kFish);
    return std::string(kBash);
}

}  // namespace frontend
