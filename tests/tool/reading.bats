bats_require_minimum_version 1.5.0

# Reading documents: what is JSON, what is not, and what --lenient takes besides.

setup() { cd "$BATS_TEST_TMPDIR"; }

# Decodes a point out of the text, escapes as of printf, with the options behind it.
point() {
    local text=$1
    shift
    printf "$text" | timeout 20 "$JSONPARSER" decode VK_POINT "$@"
}

# Arrays inside each other.
nested() {
    printf '[%.0s' $(seq "$1")
    printf ']%.0s' $(seq "$1")
}

# What the text is refused with.
refused() {
    run --separate-stderr point "$1"
    [ "$status" -eq 1 ]
    [ "$output" = "" ]
    [ "${#stderr_lines[@]}" -eq 3 ]
    [ "${stderr_lines[0]}" = "jsonparser: <stdin>:$2" ]
}

@test "blanks of every kind may stand around values" {
    run point ' \t\r\n[ \t\r\n1 , 2\n]\r\n \t'
    [ "$status" -eq 0 ]
    [ "${lines[2]}" = "  ny  2" ]
}

@test "an empty document is refused" {
    refused '' '1:1: /: found an empty document, expected a value'
}

@test "a document of blanks is refused where it ends" {
    refused ' \n\n  ' '3:3: /: found an empty document, expected a value'
}

@test "a document that is cut is refused where it ends" {
    refused '[1, 2' "1:6: /: found the end of the document, expected ',' or ']'"
    refused '{"a": {"b"' "1:11: /a/b: found the end of the document, expected ':'"
    refused '{"a": [1, ' '1:11: /a/1: found the end of the document, expected a value'
    refused '{"a": 1' "1:8: /: found the end of the document, expected ',' or '}'"
    refused '["a' '1:4: /0: found the end of the document, expected the closing quote of the text'
}

@test "text behind the document is refused" {
    refused '[1, 2] x' "1:8: /: found 'x', expected the end of the document"
    refused '[1, 2]\n[3, 4]' "2:1: /: found '[', expected the end of the document"
}

@test "bytes behind a NUL are noticed" {
    refused '[1, 2]\0[3]' '1:7: /: found the control character U+0000, expected the end of the document'
    refused '[1, 2]\0' '1:7: /: found the control character U+0000, expected the end of the document'
    refused '[1, \0 2]' '1:5: /1: found the control character U+0000, expected a value'
}

@test "comments are refused" {
    refused '[1, 2] // two' '1:8: /: found a comment, expected the end of the document'
    refused '[1, /* two */ 2]' '1:5: /1: found a comment, expected a value'
}

@test "separators that are missing or too many are refused" {
    refused '[1,]' "1:4: /1: found ']', expected a value"
    refused '[,1]' "1:2: /0: found ',', expected a value or ']'"
    refused '[1 2]' "1:4: /: found '2', expected ',' or ']'"
    refused '{"a": 1,}' "1:9: /: found '}', expected a member's name in quotes"
    refused '{"a" 1}' "1:6: /a: found '1', expected ':'"
    refused '{"a": 1 "b": 2}' "1:9: /: found a text, expected ',' or '}'"
    refused '[1}' "1:3: /: found '}', expected ',' or ']'"
}

@test "names without quotes and in apostrophes are refused" {
    refused '{a: 1}' "1:2: /: found 'a', expected a member's name in quotes or '}'"
    refused "{'a': 1}" "1:2: /: found ''', expected a member's name in quotes or '}'"
}

@test "numbers that JSON does not have are refused" {
    refused '[01]' "1:2: /: found '01', expected a number without a zero before it"
    refused '[+1]' "1:2: /0: found '+1', expected a value or ']'"
    refused '[.5]' "1:2: /0: found '.5', expected a value or ']'"
    refused '[1.]' "1:4: /0: found ']', expected a digit"
    refused '[-]' "1:3: /0: found ']', expected a digit"
    refused '[1e+]' "1:5: /0: found ']', expected a digit"
    refused '[0x1F]' "1:3: /: found 'x1F', expected ',' or ']'"
    refused '[1e400]' "1:2: /0: found '1e400', expected a number within the range of a double"
}

@test "words that JSON does not have are refused" {
    refused '[NaN]' "1:2: /0: found 'NaN', expected a value or ']'"
    refused '[True]' "1:2: /0: found 'True', expected a value or ']'"
    refused '{"a": nul}' "1:7: /a: found 'nul', expected a value"
}

@test "control characters in texts are refused" {
    refused '["a\tb"]' '1:4: /0: found the control character U+0009, expected it escaped, as \u0009'
    refused '["a\nb"]' '1:4: /0: found a line end, expected the closing quote of the text'
}

@test "bad escapes in texts are refused" {
    refused '["\\x41"]' "1:3: /0: found a backslash before 'x41', expected one of \\\" \\\\ \\/ \\b \\f \\n \\r \\t \\u"
    refused '["\\u12g4"]' "1:7: /0: found 'g4', expected four hexadecimal digits after \\u"
    refused '["\\ud800"]' '1:9: /0: found a text, expected the second half of the character, \udc00 to \udfff'
    refused '["\\udc00"]' "1:3: /0: found '\\udc00', expected a character, not the second half of one"
}

@test "bytes that are not UTF-8 are refused" {
    refused '["京\xff"]' '1:4: /0: found the byte 0xFF, which is not UTF-8, expected a character in UTF-8'
    refused '["\xc0\xaf"]' '1:3: /0: found the byte 0xC0, which is not UTF-8, expected a character in UTF-8'
    refused '\xe4[1]' '1:1: /: found the byte 0xE4, which is not UTF-8, expected a value'
}

@test "64 levels are read, 65 are refused at the place" {
    nested 64 >64.json
    run --separate-stderr "$JSONPARSER" decode VK_POINT 64.json
    [[ "${stderr_lines[0]}" == *"expected a whole VK_POINT" ]]
    nested 65 >65.json
    run --separate-stderr "$JSONPARSER" decode VK_POINT 65.json
    [ "$status" -eq 1 ]
    [[ "${stderr_lines[0]}" == "jsonparser: 65.json:1:65: /0/0/"*": found an array inside 64 others, expected at most 64 levels (see --max-depth)" ]]
}

@test "--max-depth sets the levels, for both ways of reading" {
    for lenient in "" --lenient; do
        nested 3 >3.json
        run --separate-stderr "$JSONPARSER" decode VK_POINT --max-depth 3 $lenient 3.json
        [[ "${stderr_lines[0]}" == *"expected a whole VK_POINT" ]]
        run "$JSONPARSER" decode VK_POINT --max-depth 2 $lenient 3.json
        [ "$status" -eq 1 ]
        [[ "${lines[0]}" == "jsonparser: 3.json:1:3: "*"found an array inside 2 others, expected at most 2 levels (see --max-depth)" ]]
        nested 1000 >1000.json
        run --separate-stderr "$JSONPARSER" decode VK_POINT --max-depth 1000 $lenient 1000.json
        [[ "${stderr_lines[0]}" == *"expected a whole VK_POINT" ]]
    done
}

@test "--max-depth takes 1 to 1000" {
    for depth in 0 1001 -1 x ""; do
        run "$JSONPARSER" decode VK_POINT --max-depth "$depth" <<<'[1, 2]'
        [ "$status" -eq 2 ]
        [ "${#lines[@]}" -eq 1 ]
    done
}

@test "a million brackets are refused at once, strictly and leniently" {
    head -c 1000000 /dev/zero | tr '\0' '[' >deep.json
    for lenient in "" --lenient; do
        run timeout 20 "$JSONPARSER" decode VK_POINT $lenient deep.json
        [ "$status" -eq 1 ]
        [[ "${lines[0]}" == "jsonparser: deep.json:1:65: "* ]]
    done
}

@test "--max-size bounds what is read" {
    run point '[1, 2]' --max-size 6
    [ "$status" -eq 0 ]
    run point '[1, 2] ' --max-size 6
    [ "$status" -eq 1 ]
    [ "$output" = "jsonparser: <stdin>: found more than 6 bytes, expected at most that many (see --max-size)" ]
    run timeout 20 "$JSONPARSER" decode VK_POINT --max-size 1MiB /dev/zero
    [ "$status" -eq 1 ]
    [ "$output" = "jsonparser: /dev/zero: found more than 1048576 bytes, expected at most that many (see --max-size)" ]
}

@test "--max-size refuses what is no size" {
    for size in x 0 -1 "" 1.5 5parsecs 99999999999999999999 2TiB; do
        run "$JSONPARSER" decode VK_POINT --max-size "$size" <<<'[1, 2]'
        [ "$status" -eq 2 ]
        [ "${#lines[@]}" -eq 1 ]
    done
}

@test "a UTF-8 byte-order mark is taken and does not count as a column" {
    run point '\xef\xbb\xbf[1, 2]'
    [ "$status" -eq 0 ]
    [ "${lines[2]}" = "  ny  2" ]
    refused '\xef\xbb\xbf[1, x]' "1:5: /1: found 'x', expected a value"
    run point '\xef\xbb\xbf[1, 2]' --lenient
    [ "$status" -eq 0 ]
}

@test "a second byte-order mark is refused" {
    refused '\xef\xbb\xbf\xef\xbb\xbf[1, 2]' '1:1: /: found a byte-order mark, expected a value'
}

@test "UTF-16 and UTF-32 are named, with and without a mark" {
    for encoding in UTF-16 UTF-16LE UTF-16BE UTF-32 UTF-32LE UTF-32BE; do
        printf '[1, 2]' | iconv -t "$encoding" >foreign.json
        for lenient in "" --lenient; do
            run "$JSONPARSER" decode VK_POINT $lenient foreign.json
            [ "$status" -eq 1 ]
            [ "${lines[0]}" = "jsonparser: foreign.json:1:1: /: found ${encoding:0:6}, expected UTF-8" ]
        done
    done
}

@test "of members with the same name the last one counts" {
    run bash -c 'echo "{\"Max\": 1, \"Max\": 2}" | "$JSONPARSER" decode tagRANGE --json'
    [ "$status" -eq 0 ]
    [[ "$output" == *'"fMax": 2,'* ]]
}

@test "integers beyond 64 bits are read as reals" {
    run bash -c 'echo "{\"Max\": 18446744073709551616, \"Min\": -9223372036854775809}" |
        "$JSONPARSER" decode tagRANGE --json'
    [ "$status" -eq 0 ]
    [[ "$output" == *'"fMax": 1.8446744e+19'* ]]
    [[ "$output" == *'"fMin": -9.223372e+18'* ]]
}

@test "the same document reads the same under a locale with a decimal comma" {
    run bash -c 'echo "{\"Max\": 2.5, \"Min\": 1e-3}" | LOCPATH=$LOCALES LC_ALL=de_DE.UTF-8 "$JSONPARSER" decode tagRANGE --json'
    [ "$status" -eq 0 ]
    [[ "$output" == *'"fMax": 2.5'* ]]
    [[ "$output" == *'"fMin": 0.001'* ]]
}

@test "--lenient takes comments, commas at the end and text behind the document" {
    for text in '// point\n[1, 2]' '[1, /* two */ 2]' '[1, 2,]' '[1, 2] x' '[01, +2]' '[1., 2]' '[1, 2]\0x'; do
        run point "$text" --lenient
        [ "$status" -eq 0 ]
        [ "${lines[1]}" = "  nx  1" ]
        [ "${lines[2]}" = "  ny  2" ]
    done
}

@test "--lenient names the place of what it cannot read either" {
    run --separate-stderr point '[1,\n 2 3]' --lenient
    [ "$status" -eq 1 ]
    [ "${stderr_lines[0]}" = "jsonparser: <stdin>:2:4: /: Missing ',' or ']' in array declaration" ]
    [ "${stderr_lines[1]}" = "    2 |  2 3]" ]
    [ "${stderr_lines[2]}" = "      |    ^" ]
}

@test "--lenient reads a megabyte of blanks and comments at once" {
    { echo '['; for i in $(seq 20000); do echo '/* comment */          // and another'; done; echo '1, 2]'; } >comments.json
    run timeout 5 "$JSONPARSER" decode VK_POINT --lenient comments.json
    [ "$status" -eq 0 ]
    [ "${lines[2]}" = "  ny  2" ]
}

@test "encode reads as strictly, and as leniently" {
    run bash -c 'echo "{\"nHour\": 9,}" | "$JSONPARSER" encode tagCFG_TIME'
    [ "$status" -eq 1 ]
    [[ "${lines[0]}" == "jsonparser: <stdin>:1:13: /: found '}', expected a member's name in quotes" ]]
    run bash -c 'echo "{\"nHour\": 9,} // o clock" | "$JSONPARSER" encode tagCFG_TIME --lenient'
    [ "$status" -eq 0 ]
    [ "$output" = '"09:00:00"' ]
    run bash -c 'echo "{\"nHour\": 9}" | "$JSONPARSER" encode tagCFG_TIME --max-size 5'
    [ "$status" -eq 1 ]
}
