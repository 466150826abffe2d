# Completion of the tool's words in bash, zsh and fish.
bats_require_minimum_version 1.5.0

setup_file() {
    for shell in bash zsh fish; do "$JSONPARSER" completion $shell >"$BATS_FILE_TMPDIR/$shell"; done
    mkdir "$BATS_FILE_TMPDIR/folder"
    touch "$BATS_FILE_TMPDIR/folder/message one.json" "$BATS_FILE_TMPDIR/folder/message2.json"
}

# What bash offers for the last word, a line each; words are cut as bash cuts them.
in_bash() {
    bash --norc -c '. "$1"; shift; COMP_WORDS=(jsonparser "$@"); COMP_CWORD=$#; _jsonparser
        printf "%s\n" "${COMPREPLY[@]}"' _ "$BATS_FILE_TMPDIR/bash" "$@"
}

# What fish offers for a command line, without the meanings.
in_fish() {
    HOME=$BATS_TEST_TMPDIR fish --no-config -c 'source $argv[1]; complete -C "$argv[2]"' "$BATS_FILE_TMPDIR/fish" "$1" |
        cut -f 1
}

# What zsh makes of a command line and two tabs, on a terminal.
in_zsh() {
    cp "$BATS_FILE_TMPDIR/zsh" "$BATS_TEST_TMPDIR/_jsonparser"
    python3 - "$BATS_TEST_TMPDIR" "$1" <<'END'
import os, pty, re, select, sys, time
folder, line = sys.argv[1:]
pid, terminal = pty.fork()
if pid == 0:
    os.environ.update(TERM="dumb", PS1="> ", ZDOTDIR=folder, HOME=folder)
    os.execvp("zsh", ["zsh", "-f", "-i"])
def until(end, seconds=60):
    seen, deadline = "", time.monotonic() + seconds
    while not end(seen):
        if not select.select([terminal], [], [], max(0, deadline - time.monotonic()))[0]: break
        seen += os.read(terminal, 65536).decode(errors="replace")
    return seen
os.write(terminal, f"unsetopt zle_bracketed_paste; LISTMAX=1000; fpath=({folder} $fpath); autoload -U compinit; "
                   f"compinit -u -D; echo rea''dy\n".encode())
until(lambda seen: "ready" in seen)
os.write(terminal, (line + "\t\t").encode())
seen = until(lambda seen: False, 3)
print(re.sub(r"\x1b\[[0-9;?]*[a-zA-Z]|[\r\x07\x08]", "", seen))
os.close(terminal)
END
}

# Names of records: all of them, or those that decode or encode takes.
records() { "$JSONPARSER" records | grep -E "bytes  .*${1-}.*  " | cut -d' ' -f1 | sort; }
tables() { "$JSONPARSER" keywords | sed -nE 's/^([A-Za-z0-9]+): .*/\1/p' | sort; }
commands() { "$JSONPARSER" --help | sed '1,/^Subcommands:/d' | sed -nE 's/^  ([a-z]+) .*/\1/p' | sort; }
options() { "$JSONPARSER" $1 --help | grep -oE '^  -[-a-z,]+' | tr -d ' ' | tr , '\n'; }

@test "the scripts are the shells' language" {
    bash -n "$BATS_FILE_TMPDIR/bash"
    if command -v zsh >/dev/null; then zsh -n "$BATS_FILE_TMPDIR/zsh"; fi
    if command -v fish >/dev/null; then fish -n "$BATS_FILE_TMPDIR/fish"; fi
}

@test "completion of an unknown shell is a usage error" {
    for arguments in "" "tcsh" "bash zsh"; do
        run "$JSONPARSER" completion $arguments
        [ "$status" -eq 2 ]
        [ "${#lines[@]}" -eq 1 ]
    done
}

@test "bash completes every command" {
    run in_bash ""
    [ "$(sort <<<"$output")" = "$(commands)" ]
    run in_bash enc
    [ "$output" = encode ]
}

@test "bash completes every option of every command, and the tool's own behind it" {
    for command in $(commands); do
        run in_bash "$command" -
        [ -z "$output" ]
        run in_bash "$command" --
        expected=$({ options "$command"; echo --color; } | grep -- ^-- | sort)
        [ "$(sort <<<"$output")" = "$expected" ]
    done
    run in_bash --
    [ "$(sort <<<"$output")" = "$(printf '%s\n' --color --help --version)" ]
}

@test "bash completes every record that the command takes where a record is expected, and nowhere else" {
    for command in decode explain encode fields; do
        run in_bash "$command" ""
        case "$command" in
            encode) way=encode ;;
            fields) way= ;;
            *) way=decode ;;
        esac
        [ "$(sort <<<"$output")" = "$(records $way)" ]
    done
    [ "$(records | wc -l)" -gt "$(records decode | wc -l)" ]
    [ "$(records decode | wc -l)" -gt "$(records encode | wc -l)" ]
    run in_bash decode --json --at /params VK_R
    [ "$output" = VK_RECT ]
    run in_bash fields VK_RECT ""
    [ -z "$output" ]
    run in_bash error ""
    [ -z "$output" ]
}

@test "bash completes a part of a record's name that one record has" {
    run in_bash decode trafficcar
    [ "$output" = tagDEV_EVENT_TRAFFIC_TRAFFICCAR_INFO ]
    run in_bash decode NET_TIME
    [ -z "$output" ]
}

@test "bash completes every vocabulary" {
    run in_bash keywords ""
    [ "$(sort <<<"$output")" = "$(tables)" ]
    run in_bash keywords VehicleS
    [ "$output" = VehicleSize ]
}

@test "bash completes the values of options, also behind =" {
    run in_bash --color ""
    [ "$output" = $'auto\nalways\nnever' ]
    run in_bash --color = al
    [ "$output" = always ]
    run in_bash --color =
    [ "$output" = $'auto\nalways\nnever' ]
    run in_bash decode VK_RECT --color n
    [ "$output" = never ]
    run in_bash completion ""
    [ "$output" = $'bash\nzsh\nfish' ]
    run in_bash decode --at ""
    [ -z "$output" ]
}

@test "bash completes files behind the record, as many as there are" {
    cd "$BATS_FILE_TMPDIR/folder"
    run in_bash decode VK_RECT m
    [ "$(sort <<<"$output")" = $'message one.json\nmessage2.json' ]
    run in_bash decode --at = /x --color never VK_RECT - message2.json 'message '
    [ "$output" = 'message one.json' ]
    run in_bash records m
    [ -z "$output" ]
}

@test "bash completes a command line on a terminal" {
    python3 - "$BATS_FILE_TMPDIR/bash" <<'END'
import os, pty, select, sys, time
pid, terminal = pty.fork()
if pid == 0:
    os.environ.update(TERM="dumb", PS1="> ", INPUTRC="/dev/null")
    os.execvp("bash", ["bash", "--norc", "--noprofile", "-i"])
os.write(terminal, f". {sys.argv[1]}; jsonparser() {{ printf '<%s>' called \"$@\"; }}\n".encode())
time.sleep(0.5)
os.write(terminal, b"jsonparser enc\tVK_R\t--col\talw\t\n")
seen, deadline = "", time.monotonic() + 60
while "<always>" not in seen and select.select([terminal], [], [], max(0, deadline - time.monotonic()))[0]:
    seen += os.read(terminal, 65536).decode(errors="replace")
assert "<called><encode><VK_RECT><--color><always>" in seen, seen
END
}

@test "fish completes commands, options, values, records, vocabularies and files" {
    command -v fish >/dev/null || skip "no fish"
    run in_fish "jsonparser "
    [ "$(sort <<<"$output")" = "$(commands)" ]
    for command in decode explain; do
        run in_fish "jsonparser $command "
        [ "$(sort <<<"$output")" = "$(records decode)" ]
    done
    run in_fish "jsonparser encode "
    [ "$(sort <<<"$output")" = "$(records encode)" ]
    run in_fish "jsonparser fields "
    [ "$(sort <<<"$output")" = "$(records)" ]
    run in_fish "jsonparser keywords "
    [ "$(sort <<<"$output")" = "$(tables)" ]
    run in_fish "jsonparser decode --"
    [ "$(sort <<<"$output")" = "$({ options decode; echo --color; } | grep -- ^-- | sort)" ]
    run in_fish "jsonparser records --color "
    [ "$(sort <<<"$output")" = $'always\nauto\nnever' ]
    run in_fish "jsonparser completion "
    [ "$(sort <<<"$output")" = $'bash\nfish\nzsh' ]
    cd "$BATS_FILE_TMPDIR/folder"
    run in_fish "jsonparser decode --at /x VK_RECT m"
    [[ "$output" == *message2.json* ]]
    run in_fish "jsonparser fields VK_RECT m"
    [ -z "$output" ]
}

@test "zsh completes commands, options, records and vocabularies on a terminal" {
    command -v zsh >/dev/null || skip "no zsh"
    run in_zsh "jsonparser enc"
    [[ "$output" == *"jsonparser encode"* ]]
    run in_zsh "jsonparser decode VK_R"
    [[ "$output" == *"decode VK_RECT"* ]]
    run in_zsh "jsonparser decode trafficcar"
    [[ "$output" == *"decode tagDEV_EVENT_TRAFFIC_TRAFFICCAR_INFO"* ]]
    run in_zsh "jsonparser encode _VKD"
    [[ "$output" == *"encode _VKDEVTIME"* ]]
    run in_zsh "jsonparser decode _VKD"
    [[ "$output" != *_VKDEVTIME* ]]
    run in_zsh "jsonparser encode VK_MSG"
    [[ "$output" != *VK_MSG_OBJECT* ]]
    run in_zsh "jsonparser keywords VehicleS"
    [[ "$output" == *"keywords VehicleSize"* ]]
    run in_zsh "jsonparser decode --max-d"
    [[ "$output" == *"decode --max-depth"* ]]
    run in_zsh "jsonparser records --color=al"
    [[ "$output" == *"records --color=always"* ]]
}
