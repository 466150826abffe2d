# Colour and progress: on terminals only, and as the user wants them.
bats_require_minimum_version 1.5.0

RED=$'\e[1;31m'
PLAIN=$'\e[0m'

# Runs a command with its input, output and errors on a terminal; prints what the terminal receives. script gives the
# command to $SHELL, and the words are quoted for bash.
on_terminal() {
    SHELL=$BASH TERM=${TERM_NAME-xterm} script --quiet --return --command "$(printf '%q ' "$@")" /dev/null </dev/null | tr -d '\r'
}

@test "an error on a terminal is coloured" {
    run on_terminal "$JSONPARSER" fields NoSuchRecord
    [[ "$output" == "${RED}jsonparser:${PLAIN} found "* ]]
}

@test "an error in a pipe or a file is not coloured" {
    run "$JSONPARSER" fields NoSuchRecord
    [[ "$output" == "jsonparser: found "* ]]
    run on_terminal bash -c "\"$JSONPARSER\" fields NoSuchRecord 2>&1 | cat"
    [[ "$output" == "jsonparser: found "* ]]
}

@test "--color always colours in a pipe, before and behind the command" {
    for arguments in "--color always fields NoSuchRecord" "fields --color always NoSuchRecord" \
        "fields NoSuchRecord --color=always"; do
        run "$JSONPARSER" $arguments
        [ "$status" -eq 2 ]
        [[ "$output" == "${RED}jsonparser:${PLAIN} found "* ]]
    done
}

@test "--color never keeps a terminal free of colour" {
    run on_terminal "$JSONPARSER" --color never fields NoSuchRecord
    [[ "$output" == "jsonparser: found "* ]]
}

@test "--color auto is the default" {
    run on_terminal "$JSONPARSER" --color auto fields NoSuchRecord
    [[ "$output" == "${RED}jsonparser:"* ]]
    run "$JSONPARSER" --color auto fields NoSuchRecord
    [[ "$output" == "jsonparser: found "* ]]
}

@test "NO_COLOR keeps a terminal free of colour, unless it is empty" {
    NO_COLOR=1 run on_terminal "$JSONPARSER" fields NoSuchRecord
    [[ "$output" == "jsonparser: found "* ]]
    NO_COLOR= run on_terminal "$JSONPARSER" fields NoSuchRecord
    [[ "$output" == "${RED}jsonparser:"* ]]
}

@test "--color always outdoes NO_COLOR" {
    NO_COLOR=1 run "$JSONPARSER" --color always fields NoSuchRecord
    [[ "$output" == "${RED}jsonparser:"* ]]
}

@test "a dumb terminal, and one without a name, get no colour" {
    for name in dumb ""; do
        TERM_NAME=$name run on_terminal "$JSONPARSER" fields NoSuchRecord
        [[ "$output" == "jsonparser: found "* ]]
    done
}

@test "usage errors are coloured as the option before them says" {
    run "$JSONPARSER" --color always frobnicate
    [ "$status" -eq 2 ]
    [[ "$output" == "${RED}jsonparser:"* ]]
}

@test "--color takes its three words only" {
    for when in sometimes "" 1 Always; do
        run "$JSONPARSER" records --color "$when"
        [ "$status" -eq 2 ]
        [ "${#lines[@]}" -eq 1 ]
        [[ "$output" == *"auto"*"always"*"never"* ]]
    done
    run "$JSONPARSER" records --color
    [ "$status" -eq 2 ]
}

# Runs a shell command with its errors on a terminal. Its output goes to a reader that begins to read after some seconds,
# so that the run lasts as long.
with_slow_reader() { on_terminal bash -c "$2 | (sleep $1; cat >/dev/null)"; }

lines_file() { yes '[1, 2]' | head -n 200000 >"$BATS_TEST_TMPDIR/lines"; }

@test "progress with share, rate and time left is shown after a second, and cleared at the end" {
    lines_file
    run with_slow_reader 2.5 "\"$JSONPARSER\" decode VK_POINT --lines \"$BATS_TEST_TMPDIR/lines\""
    [[ "$output" =~ [0-9]+" %  "[0-9]+" lines, "[0-9.]+" "[kM]?B", "[0-9.]+" "[kM]?"B/s, "[0-9]+:[0-9][0-9]" left" ]]
    [[ "$output" == *$'\e[K' ]]
}

@test "progress of input whose size is not known has no time left" {
    lines_file
    run with_slow_reader 2.5 "cat \"$BATS_TEST_TMPDIR/lines\" | \"$JSONPARSER\" decode VK_POINT --lines"
    [[ "$output" =~ [0-9]+" lines, "[0-9.]+" "[kM]?B", "[0-9.]+" "[kM]?"B/s" ]]
    [[ "$output" != *left* ]]
}

@test "a finding does not run into the progress" {
    lines_file
    echo '[1]' >>"$BATS_TEST_TMPDIR/lines"
    run with_slow_reader 2.5 "\"$JSONPARSER\" --color never decode VK_POINT --lines \"$BATS_TEST_TMPDIR/lines\""
    [[ "$output" == *$'\e[K'"jsonparser: $BATS_TEST_TMPDIR/lines:200001:1: /: found "* ]]
}

@test "a run of less than a second shows no progress" {
    yes '[1, 2]' | head -n 100 >"$BATS_TEST_TMPDIR/lines"
    run with_slow_reader 0 "\"$JSONPARSER\" decode VK_POINT --lines \"$BATS_TEST_TMPDIR/lines\""
    [ -z "$output" ]
}

@test "no progress where errors go to a file, output to a terminal, or the terminal is dumb" {
    lines_file
    run with_slow_reader 2.5 "\"$JSONPARSER\" decode VK_POINT --lines \"$BATS_TEST_TMPDIR/lines\" 2>\"$BATS_TEST_TMPDIR/errors\""
    [ -z "$output" ]
    [ ! -s "$BATS_TEST_TMPDIR/errors" ]
    run on_terminal bash -c "(head -n 10 \"$BATS_TEST_TMPDIR/lines\"; sleep 1.2; echo '[1, 2]') |
        \"$JSONPARSER\" decode VK_POINT --lines"
    [ "$(sort -u <<<"$output")" = '{"nx":1,"ny":2}' ]
    TERM_NAME=dumb run with_slow_reader 2.5 "\"$JSONPARSER\" decode VK_POINT --lines \"$BATS_TEST_TMPDIR/lines\""
    [ -z "$output" ]
}

@test "progress of many files counts files" {
    echo '[1, 2]' >"$BATS_TEST_TMPDIR/point"
    files=$(for ((i = 0; i < 3000; ++i)); do printf '%s ' "$BATS_TEST_TMPDIR/point"; done)
    run with_slow_reader 2.5 "\"$JSONPARSER\" decode VK_POINT $files"
    [[ "$output" =~ [0-9]+" %  "[0-9]+" files, "[0-9.]+" "[kM]?B", "[0-9.]+" "[kM]?"B/s, 0:0"[0-9]" left" ]]
    [[ "$output" == *$'\e[K' ]]
}
