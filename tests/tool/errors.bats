bats_require_minimum_version 1.5.0

# What goes wrong around a document: places, excerpts, counts, streams, exit codes.

setup() { cd "$BATS_TEST_TMPDIR"; }

encode() { run --separate-stderr "$JSONPARSER" encode "$@"; }

@test "eleven defects of one record give eleven findings at their places in one run" {
    cat >person.json <<'END'
{
  "szPersonNameEx": 5,
  "wYear": 70000,
  "byMonth": -1,
  "byDay": 1.5,
  "szCountry": "CHINA",
  "bySexx": 1,
  "stuFacePicInfo": [{"dwOffset": "x"}, {"pszFilePth": null}],
  "byIsCustomType": true,
  "pszComment": 7,
  "szUID": {"hex": "0"}
}
END
    encode tagFACERECOGNITION_PERSON_INFO person.json
    [ "$status" -eq 1 ]
    [ "$output" = "" ]
    mapfile -t findings < <(grep '^jsonparser: ' <<<"$stderr" | cut -d: -f3-5)
    [ "${findings[*]}" = "2:21: /szPersonNameEx 3:12: /wYear 4:14: /byMonth 5:12: /byDay 6:16: /szCountry 7:3: /bySexx 8:35: /stuFacePicInfo/0/dwOffset 8:42: /stuFacePicInfo/1/pszFilePth 9:21: /byIsCustomType 10:17: /pszComment 11:12: /szUID" ]
}

@test "a wrong field name proposes the nearest" {
    encode tagCFG_TIME <<<'{"nHuor": 9}'
    [ "$status" -eq 1 ]
    [ "${stderr_lines[0]}" = 'jsonparser: <stdin>:1:2: /nHuor: found "nHuor", expected a field of tagCFG_TIME; did you mean nHour?' ]
}

@test "a wrong field name in a nested record names that record" {
    encode VK_COMM_PROP <<<'{"byParty": 1}'
    [[ "${stderr_lines[0]}" == *'expected a field of VK_COMM_PROP; did you mean byParity?' ]]
    encode tagFACERECOGNITION_PERSON_INFO <<<'{"stuFacePicInfo": [{"x": 1}]}'
    [ "${stderr_lines[0]}" = 'jsonparser: <stdin>:1:22: /stuFacePicInfo/0/x: found "x", expected a field of VK_PIC_INFO' ]
}

@test "the path escapes slashes and tildes, and what a terminal would obey" {
    encode tagCFG_TIME <<<'{"a/b~c": 1, "\u001b[31m": 2}'
    [[ "${stderr_lines[0]}" == 'jsonparser: <stdin>:1:2: /a~1b~0c: '* ]]
    [[ "$stderr" == *'<stdin>:1:14: /\x1b[31m: found "\x1b[31m", expected'* ]]
}

@test "a text that is too long is refused, one that fills its field is taken" {
    for length in 256 257; do
        text=$(head -c $length /dev/zero | tr '\0' x)
        encode tagFACERECOGNITION_PERSON_INFO <<<"{\"pszFeatureValue\": \"$text\"}"
        [ "$status" -eq 1 ]
        [[ "${stderr_lines[0]}" == *'expected a text of at most 255 bytes, as byFeatureValueLen has it, {"hex": its bytes} or null' ]]
    done
    text=$(head -c 255 /dev/zero | tr '\0' x)
    encode tagFACERECOGNITION_PERSON_INFO <<<"{\"pszFeatureValue\": \"$text\"}"
    [ "$status" -eq 0 ]
    [[ "$output" == *"\"FeatureValue\" : \"$text\""* ]]
    encode tagFACERECOGNITION_PERSON_INFO <<<'{"szCountry": "CNX"}'
    [ "$status" -eq 0 ]
    encode tagFACERECOGNITION_PERSON_INFO <<<'{"szCountry": "CNXY"}'
    [ "$status" -eq 1 ]
}

@test "a text longer than the length that the form states is refused" {
    encode tagFACERECOGNITION_PERSON_INFO <<<'{"pszGroupID": "12345", "byGroupIdLen": 4}'
    [ "$status" -eq 1 ]
    [[ "${stderr_lines[0]}" == *'/pszGroupID: found "12345", expected a text of at most 4 bytes, as byGroupIdLen has it'* ]]
    encode tagFACERECOGNITION_PERSON_INFO <<<'{"pszGroupID": "12345", "byGroupIdLen": 5}'
    [ "$status" -eq 0 ]
    [[ "$output" == *'"GroupID" : "12345"'* ]]
}

@test "a count beyond its array is refused" {
    encode tagFACERECOGNITION_PERSON_INFO <<<'{"wFacePicNum": 49}'
    [ "$status" -eq 1 ]
    [ "${stderr_lines[0]}" = 'jsonparser: <stdin>:1:17: /wFacePicNum: found 49, expected at most 48, the elements of stuFacePicInfo' ]
    encode tagFACERECOGNITION_PERSON_INFO --lines <<<'{"wFacePicNum": 49}'
    [ "$status" -eq 1 ]
    [[ "$stderr" == *'found 49, expected at most 48, the elements of stuFacePicInfo'* ]]
    encode tagFACERECOGNITION_PERSON_INFO <<<'{"wFacePicNum": 48}'
    [ "$status" -eq 0 ]
    for count in 5 -1; do
        encode tagFACERECOGNITION_PERSON_INFOEX <<<"{\"nCustomPersonInfoNum\": $count}"
        [ "$status" -eq 1 ]
        [[ "${stderr_lines[0]}" == *"found $count, expected at most 4, the elements of stuCustomPersonInfo" ]]
    done
}

@test "an array with too many elements is refused, one with fewer is taken" {
    encode tagCFG_TIME_SCHEDULE <<<'{"stuTimeSection": [[],[],[],[],[],[],[],[],[]]}'
    [ "$status" -eq 1 ]
    [ "${stderr_lines[0]}" = 'jsonparser: <stdin>:1:20: /stuTimeSection: found an array of 9, expected an array of at most 8' ]
    encode tagCFG_TIME_SCHEDULE <<<'{"stuTimeSection": [[{"dwRecordMask": 1}]]}'
    [ "$status" -eq 0 ]
    [[ "$output" == *'"1 00:00:00-00:00:00"'* ]]
}

@test "texts by their bytes are taken in both cases of digits" {
    export TOOL_LOCALE=  # of bytes that are, or are not, UTF-8
    encode tagFACERECOGNITION_PERSON_INFO <<<'{"szUID": {"hex": "c3A4"}}'
    [ "$status" -eq 0 ]
    [[ "$output" == *'"UID" : "ä"'* ]]
    for bytes in '"0"' '"0g"' '5' '"00", "more": 1'; do
        encode tagFACERECOGNITION_PERSON_INFO <<<"{\"szUID\": {\"hex\": $bytes}}"
        [ "$status" -eq 1 ]
    done
}

@test "a text with a NUL is refused" {
    encode tagFACERECOGNITION_PERSON_INFO <<<'{"szUID": "a\u0000b"}'
    [ "$status" -eq 1 ]
    [[ "${stderr_lines[0]}" == *'/szUID: found "a\x00b", expected a text of at most 32 bytes'* ]]
    for field in szUID pszGroupID; do
        for bytes in 00 4100 410042; do
            encode tagFACERECOGNITION_PERSON_INFO <<<"{\"$field\": {\"hex\": \"$bytes\"}}"
            [ "$status" -eq 1 ]
            [ "$output" = "" ]
            [[ "${stderr_lines[0]}" == *"/$field: found an object, expected a text of at most "* ]]
        done
    done
}

@test "a long value is cut in the message" {
    encode tagCFG_TIME <<<"{\"nHour\": \"$(head -c 5000 /dev/zero | tr '\0' x)\"}"
    [ "$status" -eq 1 ]
    [[ "${stderr_lines[0]}" == *"x\"... (5000 bytes), expected an integer from "* ]]
    [ "${#stderr}" -lt 500 ]
}

@test "the excerpt shows a window of a long line with the caret below the place" {
    printf '{"pad": "%s", "nHour": "京", "more": "%s"}' "$(head -c 200 /dev/zero | tr '\0' p)" "$(head -c 200 /dev/zero | tr '\0' m)" >long.json
    encode tagCFG_TIME long.json
    [ "$status" -eq 1 ]
    [ "${stderr_lines[3]}" = 'jsonparser: long.json:1:222: /nHour: found "京", expected an integer from -2147483648 to 2147483647' ]
    [[ "${stderr_lines[4]}" == '    1 | ...pppp'*'"nHour": "京"'*'mmm...' ]]
    before=${stderr_lines[5]%^}
    [ "${#before}" -eq $((8 + 3 + 40)) ]
}

@test "the caret stands below the place behind tabs and wide characters" {
    printf '{\t"京": 1}' >tab.json
    encode tagCFG_TIME tab.json
    [ "${stderr_lines[0]%%: /*}" = "jsonparser: tab.json:1:3" ]
    [ "${stderr_lines[1]}" = '    1 | {       "京": 1}' ]
    [ "${stderr_lines[2]}" = '      |         ^' ]
}

@test "findings of decode name the place of the record in the message" {
    run --separate-stderr "$JSONPARSER" decode VK_RECT --at /a/1 <<<'{"a": [0, [1, 2, 3]]}'
    [ "$status" -eq 1 ]
    [ "${stderr_lines[0]}" = 'jsonparser: <stdin>:1:11: /a/1: found an array of 3, expected a whole VK_RECT' ]
    [ "${lines[0]}" = "VK_RECT (32 bytes)" ]
}

@test "--at proposes the nearest member and refuses what is no pointer" {
    run "$JSONPARSER" decode VK_RECT --at /parms/Rect <<<'{"params": {"Rect": [1, 2, 3, 4]}}'
    [ "$status" -eq 1 ]
    [ "${lines[0]}" = 'jsonparser: <stdin>:1:1: /parms: found an object without it, expected a value; did you mean "params"?' ]
    for pointer in params/Rect /a~2b /a~; do
        for command in decode explain; do
            run "$JSONPARSER" $command VK_RECT --at $pointer <<<'{"params": {"Rect": [1, 2, 3, 4]}}'
            [ "$status" -eq 2 ]
            [[ "${lines[0]}" == *"found \"$pointer\", expected a JSON pointer: / before each step, ~ only as ~0 and ~1"* ]]
            [ "${#lines[@]}" -eq 1 ]
        done
    done
}

@test "an unknown word is no whole word" {
    run --separate-stderr "$JSONPARSER" decode PlateColor <<<'"Bleu"'
    [ "$status" -eq 1 ]
    [ "${stderr_lines[0]}" = 'jsonparser: <stdin>:1:1: /: found "Bleu", expected a whole PlateColor; did you mean "Blue"?' ]
    run --separate-stderr "$JSONPARSER" decode PlateColor <<<'"Zzzzzzzzzzzz"'
    [ "${stderr_lines[0]}" = 'jsonparser: <stdin>:1:1: /: found "Zzzzzzzzzzzz", expected a whole PlateColor' ]
    run "$JSONPARSER" decode PlateColor <<<'"blue"'
    [ "$status" -eq 0 ]
    [ "${lines[1]}" = "  nCode  1" ]
}

@test "words, colours, coordinates and codes of replies are decoded and encoded" {
    run "$JSONPARSER" decode LogType <<<'["RecordLog", "x", "SystemLog", "Record"]'
    [[ "${lines[1]}" == "  nCount  2" ]]
    [[ "${lines[2]}" == "  nCodes  [5, 7, 0, "* ]]
    run "$JSONPARSER" decode ErrorCode <<<'{"error": {"code": 268632080}}'
    [ "${lines[1]}" = "  nCode  2147483727" ]
    run "$JSONPARSER" decode Coordinate/integer <<<'[120, 30, 0]'
    [ "${lines[1]}" = "  nCoordinate  120500000" ]
    run bash -c '"$JSONPARSER" decode Color --json <<<"[1, 2, 3, 4]" | "$JSONPARSER" encode Color | tr -d " \n"'
    [ "$output" = "[1,2,3,4]" ]
    run "$JSONPARSER" encode FaceDBType <<<'{"nCode": 2}'
    [ "$output" = '"BlackListDB"' ]
    run "$JSONPARSER" encode FaceDBType <<<'{"nCode": 9}'
    [ "$status" -eq 1 ]
}

@test "files that cannot be read give 3, one line each, and the others are read" {
    echo '[1, 2]' >good.json
    run --separate-stderr "$JSONPARSER" decode VK_POINT missing.json . good.json
    [ "$status" -eq 3 ]
    [ "${#stderr_lines[@]}" -eq 2 ]
    [ "${stderr_lines[0]}" = "jsonparser: missing.json: cannot be read: No such file or directory" ]
    [ "${stderr_lines[1]}" = "jsonparser: .: cannot be read: Is a directory" ]
    [[ "$output" == *"  ny  2" ]]
}

@test "a file without permission gives 3" {
    [ "$(id -u)" -ne 0 ] || skip "root reads everything"
    echo '[1, 2]' >closed.json
    chmod 0 closed.json
    run "$JSONPARSER" decode VK_POINT closed.json
    [ "$status" -eq 3 ]
    [ "$output" = "jsonparser: closed.json: cannot be read: Permission denied" ]
}

@test "a closed standard input gives 3" {
    run bash -c '"$JSONPARSER" decode VK_POINT <&-'
    [ "$status" -eq 3 ]
    [ "$output" = "jsonparser: <stdin>: cannot be read: Bad file descriptor" ]
}

@test "the worst of several documents decides the exit code" {
    echo '[1, 2]' >good.json
    echo '[1' >bad.json
    run "$JSONPARSER" decode VK_POINT good.json bad.json
    [ "$status" -eq 1 ]
    run "$JSONPARSER" decode VK_POINT bad.json missing.json good.json
    [ "$status" -eq 3 ]
}

@test "a named pipe is read like a file" {
    mkfifo pipe
    echo '[1, 2]' >pipe &
    run timeout 10 "$JSONPARSER" decode VK_POINT pipe
    [ "$status" -eq 0 ]
    [ "${lines[2]}" = "  ny  2" ]
}

@test "a closed pipe ends it quietly" {
    run bash -c 'set -o pipefail; { for i in $(seq 3000); do echo "$MESSAGES/traffic_event.json"; done; } |
        xargs "$JSONPARSER" decode trafficcar --at /params/Events/0/TrafficCar 2>"$0" | head -1' errors.txt
    [[ "${lines[0]}" == "== "* ]]
    [ "$(grep -c ^jsonparser: errors.txt)" -eq 0 ]
}

@test "a closed pipe ends it quietly where its signal is ignored, too" {
    run bash -c 'trap "" PIPE; { "$JSONPARSER" decode VK_POINT --json 2>errors.txt; echo $? >code; } < <(sleep 0.3; echo "[1, 2]") | true'
    sleep 0.6
    [ ! -s errors.txt ]
    [ "$(cat code)" -eq 3 ]
}

@test "a full disk is noticed by encode" {
    [ -e /dev/full ] || skip "no /dev/full"
    run bash -c 'echo "{}" | "$JSONPARSER" encode VK_POINT >/dev/full'
    [ "$status" -eq 3 ]
    [ "$output" = "jsonparser: cannot write to standard output: No space left on device" ]
}

@test "a closed standard output is noticed" {
    run bash -c 'echo "{}" | "$JSONPARSER" encode VK_POINT >&-'
    [ "$status" -eq 3 ]
    [ "$output" = "jsonparser: cannot write to standard output: Bad file descriptor" ]
}

@test "what was printed comes before the findings about it" {
    run bash -c '"$JSONPARSER" decode VK_RECT <<<"[1]" 2>&1'
    [ "${lines[0]}" = "VK_RECT (32 bytes)" ]
    [[ "${lines[5]}" == "jsonparser: <stdin>:1:1: "* ]]
}

@test "a pipe gets no colour, a terminal gets it" {
    run "$JSONPARSER" decode VK_POINT <<<'[1'
    [[ "$output" != *$'\e'* ]]
    command -v script >/dev/null || skip "no script"
    run env TERM=xterm script -qec "echo '[1' | '$JSONPARSER' decode VK_POINT" /dev/null
    [[ "$output" == *$'\e['*"<stdin>:2:1:"* ]]
}

@test "a document larger than memory is one clear error" {
    if grep -qE "__(asan|tsan)_init" "$JSONPARSER"; then skip "a sanitizer needs memory of its own"; fi
    run bash -c "ulimit -v 300000; head -c 20000000 /dev/zero | tr '\\0' '1' | sed 's/1/1,/g; s/^/[/; s/$/1]/' | \"\$JSONPARSER\" decode VK_RECT"
    [ "$status" -eq 3 ]
    [ "$output" = "jsonparser: found a document larger than the memory there is, expected a smaller one (see: --max-size)" ]
}

@test "bad values of options are named with what was expected, and the nearest word" {
    while IFS='|' read -r arguments expected; do
        run --separate-stderr "$JSONPARSER" $arguments </dev/null
        [ "$status" -eq 2 ]
        [ -z "$output" ]
        [ "${stderr_lines[*]}" = "jsonparser: $expected" ]
    done <<'END'
records --color alway|--color: found "alway", expected auto, always or never; did you mean "always"? (see: jsonparser records --help)
records --color xyz|--color: found "xyz", expected auto, always or never (see: jsonparser records --help)
records --color|--color: found nothing, expected auto, always or never (see: jsonparser records --help)
completion bsh|SHELL: found "bsh", expected bash, zsh or fish; did you mean "bash"? (see: jsonparser completion --help)
completion|found nothing, expected SHELL (see: jsonparser completion --help)
decode VK_POINT --max-size 10QB|--max-size: found "10QB", expected a size from 1 to 1TiB: whole bytes, or with a unit as 256KiB, 10MB (see: jsonparser decode --help)
decode VK_POINT --max-size 1.5MB|--max-size: found "1.5MB", expected a size from 1 to 1TiB: whole bytes, or with a unit as 256KiB, 10MB (see: jsonparser decode --help)
decode VK_POINT --max-size -1|--max-size: found "-1", expected a size from 1 to 1TiB: whole bytes, or with a unit as 256KiB, 10MB (see: jsonparser decode --help)
decode VK_POINT --max-size|--max-size: found nothing, expected SIZE (see: jsonparser decode --help)
decode VK_POINT --max-depth 0|--max-depth: found "0", expected a whole number from 1 to 1000 (see: jsonparser decode --help)
decode VK_POINT --max-depth 1001|--max-depth: found "1001", expected a whole number from 1 to 1000 (see: jsonparser decode --help)
decode VK_POINT --max-depth 2 --max-depth 3|--max-depth: found 2 times, expected once (see: jsonparser decode --help)
decode VK_POINT --json=1|--json: found a value, expected none (see: jsonparser decode --help)
decode VK_POINT --hex --json|found --json with --hex, expected only one (see: jsonparser decode --help)
decode VK_POINT --jobs 2|found --jobs without --lines, expected both (see: jsonparser decode --help)
decode VK_POINT --lines --jobs 0|--jobs: found "0", expected a whole number from 1 to 256 (see: jsonparser decode --help)
decode VK_POINT --lines --jobs -1|--jobs: found "-1", expected a whole number from 1 to 256 (see: jsonparser decode --help)
decode VK_POINT --lines --jobs 257|--jobs: found "257", expected a whole number from 1 to 256 (see: jsonparser decode --help)
decode VK_POINT --lines --jobs 99999999999999999999|--jobs: found "99999999999999999999", expected a whole number from 1 to 256 (see: jsonparser decode --help)
decode|found nothing, expected RECORD (see: jsonparser decode --help)
|found nothing, expected a command (see: jsonparser --help)
END
}

@test "empty names are named, and stand for nothing" {
    for command in fields decode encode explain; do
        run "$JSONPARSER" $command "" </dev/null
        [ "$status" -eq 2 ]
        [ "$output" = 'jsonparser: found "", expected the name of a record (see: jsonparser records)' ]
    done
    run "$JSONPARSER" keywords ""
    [ "$status" -eq 2 ]
    [ "$output" = 'jsonparser: found "", expected the name of a vocabulary (see: jsonparser keywords)' ]
    for command in decode explain; do
        for lines in "" --lines; do
            if [ "$command$lines" = explain--lines ]; then continue; fi
            run "$JSONPARSER" $command VK_RECT $lines ""
            [ "$status" -eq 3 ]
            [ "$output" = 'jsonparser: "": cannot be read: No such file or directory' ]
        done
    done
}

@test "a code that has no word is named with those that have" {
    for form in '{"nCode": 0}' '{"nCode": 99}'; do
        run --separate-stderr "$JSONPARSER" encode FaceDBType <<<"$form"
        [ "$status" -eq 1 ]
        [ -z "$output" ]
        [[ "${stderr_lines[0]}" == *"<stdin>:1:11: /nCode: found "*", expected one of the codes 1, 2, 3, 4 (see: jsonparser keywords FaceDBType)" ]]
        plain="$stderr"
        run --separate-stderr "$JSONPARSER" encode FaceDBType --lines <<<"$form"
        [ "$stderr" = "$plain"$'\njsonparser: 1 of 1 lines are bad' ]
    done
    run --separate-stderr "$JSONPARSER" encode FaceDBType <<<'{}'
    [[ "${stderr_lines[0]}" == *"<stdin>:1:1: /: found an object, expected nCode with one of the codes 1, 2, 3, 4 (see: jsonparser keywords FaceDBType)" ]]
}
