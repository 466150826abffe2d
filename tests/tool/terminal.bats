# Colour: on terminals only, and as the user wants it.
bats_require_minimum_version 1.5.0

RED=$'\e[1;31m'
PLAIN=$'\e[0m'

# Runs a command with its input, output and errors on a terminal; prints what the terminal receives.
on_terminal() {
    TERM=${TERM_NAME-xterm} script --quiet --return --command "$(printf '%q ' "$@")" /dev/null </dev/null | tr -d '\r'
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
