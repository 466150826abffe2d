# The manual page.
bats_require_minimum_version 1.5.0

setup_file() {
    "$JSONPARSER" man >"$BATS_FILE_TMPDIR/jsonparser.1"
}

page() { mandoc -T utf8 -O width=200 "$BATS_FILE_TMPDIR/jsonparser.1" | col -bx; }

@test "man prints a page in which mandoc finds nothing to say" {
    run mandoc -T lint -W all "$BATS_FILE_TMPDIR/jsonparser.1"
    [ "$status" -eq 0 ]
    [ -z "$output" ]
}

@test "the page has its sections" {
    for section in NAME SYNOPSIS DESCRIPTION COMMANDS FINDINGS ENVIRONMENT 'EXIT STATUS' EXAMPLES 'RECORD NAMES' \
        'VOCABULARY NAMES'; do
        page | grep -qx "$section"
    done
}

@test "the page has every command with every option that its help has" {
    commands=$("$JSONPARSER" --help | sed '1,/^Subcommands:/d' | sed -nE 's/^  ([a-z]+) .*/\1/p')
    [ "$(wc -w <<<"$commands")" -ge 8 ]
    for command in $commands; do
        page | grep -qE "^ +jsonparser $command( |$)"
        section=$(page | sed -n "/^ *$command\$/,/^ \{0,3\}[a-zA-Z]\+\$/p")
        for option in $("$JSONPARSER" "$command" --help | grep -oE '^  -[-a-z,]+' | tr -d ' ' | grep -v -- '^-h'); do
            grep -qE "^ +$option\b" <<<"$section"
        done
    done
}

@test "the page has every exit code, every record and every vocabulary" {
    codes=$(page | sed -n '/^EXIT STATUS/,/^EXAMPLES/p')
    for code in 0 1 2 3; do grep -qE "^ +$code +[A-Z]" <<<"$codes"; done
    for record in $("$JSONPARSER" records | cut -d' ' -f1); do page | grep -qE " $record( |\$)"; done
    for table in $("$JSONPARSER" keywords | sed -nE 's/^([A-Za-z0-9]+): .*/\1/p'); do page | grep -qE " $table( |\$)"; done
}

@test "the examples print what the page says" {
    PATH=$(dirname "$JSONPARSER"):$PATH python3 - "$BATS_FILE_TMPDIR/jsonparser.1" <<'END'
import re, subprocess, sys
page = open(sys.argv[1], encoding="utf-8").read().split(".Sh EXAMPLES")[1]
examples = re.findall(r"^\.Bd -literal -offset indent\n(.*?)^\.Ed$", page, re.M | re.S)
assert len(examples) >= 6
for example in examples:
    text = re.sub(r"\\([e&-])", lambda m: {"e": "\\", "&": "", "-": "-"}[m[1]], example)
    command, expected = text.removeprefix("$ ").split("\n", 1)
    got = subprocess.run(["bash", "-c", command], stdout=subprocess.PIPE, stderr=subprocess.STDOUT, text=True).stdout
    assert got == expected, f"{command}\n{got}"
END
}

@test "man takes no operand" {
    run "$JSONPARSER" man decode
    [ "$status" -eq 2 ]
    [ "${#lines[@]}" -eq 1 ]
}

@test "a page that cannot be written is noticed, and so is help" {
    [ -e /dev/full ] || skip "no /dev/full"
    for arguments in man --help "decode --help" --version "completion bash"; do
        run bash -c "\"\$JSONPARSER\" $arguments 2>&1 >/dev/full"
        [ "$status" -eq 3 ]
        [ "$output" = "jsonparser: cannot write to standard output: No space left on device" ]
    done
}
