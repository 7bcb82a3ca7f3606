# fish completion for lumozephctl: the tool says what may follow.

function __lumozephctl_candidates
    set -l words (commandline --cut-at-cursor --current-process --tokenize)
    $words[1] complete -- $words[2..-1] (commandline --cut-at-cursor --current-token) 2>/dev/null
end

complete --command lumozephctl --no-files --arguments '(__lumozephctl_candidates)'
complete --command lumozephctl --condition '__fish_seen_subcommand_from batch save diff apply' --force-files
complete --command lumozephctl --long-option request --require-parameter --force-files
complete --command lumozephctl --long-option output --require-parameter --force-files
complete --command lumozephctl --long-option state --require-parameter --force-files
