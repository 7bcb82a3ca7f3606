# bash completion for lumozephctl: the tool says what may follow.

_lumozephctl() {
    # bash takes words apart at colons and equals signs: what nothing separates on the line is put together again.
    local line=${COMP_LINE:0:COMP_POINT} words=() word i
    for ((i = 0; i <= COMP_CWORD; ++i)); do
        word=${COMP_WORDS[i]}
        if ((i > 0)) && [[ -n $word && $line == "$word"* ]]; then
            words[${#words[@]} - 1]+=$word
        else
            words+=("$word")
            line=${line#"${line%%[![:blank:]]*}"}
        fi
        line=${line#"$word"}
    done
    # Blanks and the like are typed behind backslashes.
    words=("${words[@]//\\/}")
    local candidates
    mapfile -t candidates < <("${words[0]}" complete -- "${words[@]:1}" 2>/dev/null)
    local current=${words[${#words[@]} - 1]}
    # It replaces what stands behind the last of these signs.
    local before=
    [[ $current != *[:=]* ]] || before=${current%"${current##*[:=]}"}
    COMPREPLY=()
    local candidate
    for candidate in "${candidates[@]}"; do
        candidate=${candidate%%$'\t'*}
        COMPREPLY+=("$(printf %q "${candidate#"$before"}")")
        # A value follows.
        [[ $candidate != *= ]] || compopt -o nospace
    done
}
complete -o bashdefault -o default -F _lumozephctl lumozephctl
