bats_require_minimum_version 1.5.0

# encode: a message out of a record.

carried='expected a value that the message carries'

# One finding about the form, at line:column, and no message.
finds() {
    local record=$1 form=$2 place=$3 finding=$4
    run --separate-stderr "$JSONPARSER" encode "$record" <<<"$form"
    [ "$status" -eq 1 ] && [ -z "$output" ] && [ "${#stderr_lines[@]}" -eq 3 ] &&
        [[ "${stderr_lines[0]}" == "jsonparser: <stdin>:$place: "$finding ]]
}

@test "encode writes what decode --json prints" {
    run bash -c 'echo "\"2024-01-05 09:30:00.250\"" | "$JSONPARSER" decode tagNET_TIME_EX --json |
        "$JSONPARSER" encode tagNET_TIME_EX'
    [ "$status" -eq 0 ]
    [ "$output" = '"2024-01-05 09:30:00.250"' ]
}

@test "encode leaves missing fields zero" {
    run bash -c 'echo "{\"nHour\": 9}" | "$JSONPARSER" encode tagCFG_TIME'
    [ "$status" -eq 0 ]
    [ "$output" = '"09:00:00"' ]
}

@test "encode writes bit fields" {
    run bash -c 'echo "{\"year\": 24, \"month\": 1, \"day\": 5, \"hour\": 9, \"minute\": 30}" |
        "$JSONPARSER" encode _VKDEVTIME'
    [ "$output" = '"24-01-05 09:30:00"' ]
}

@test "encode refuses numbers that JSON has not" {
    for entry in tagRANGE tagRANGE/float; do
        finds $entry '{"fMax": "Infinity"}' 1:10 '/fMax: found "Infinity", expected a finite number, JSON has no other'
        finds $entry '{"fMin": "-Infinity"}' 1:10 '/fMin: found "-Infinity", expected a finite number, JSON has no other'
        finds $entry '{"fMin": "NaN"}' 1:10 '/fMin: found "NaN", expected a finite number, JSON has no other'
        finds $entry '{"fStep": "NaN"}' 1:11 '/fStep: found "NaN", expected a finite number, JSON has no other'
    done
    finds Coordinate '{"dbDegrees": "NaN"}' 1:15 '/dbDegrees: found "NaN", expected a finite number, JSON has no other'
}

@test "encode refuses texts that no message has" {
    export TOOL_LOCALE=  # of bytes that are, or are not, UTF-8
    finds tagFACERECOGNITION_PERSON_INFO '{"szUID": {"hex": "41ff"}}' 1:11 \
        '/szUID: found an object, expected a text that is UTF-8 in the message'
    finds tagFACERECOGNITION_PERSON_INFO '{"pszGroupID": {"hex": "c3"}}' 1:16 \
        '/pszGroupID: found an object, expected a text that is UTF-8 in the message'
    run --separate-stderr "$JSONPARSER" encode tagFACERECOGNITION_PERSON_INFO --lenient <<<$'{"szUID": "\xff"}'
    [ "$status" -eq 1 ]
    [[ "${stderr_lines[0]}" == *'/szUID: found "\xff", expected a text that is UTF-8 in the message' ]]
}

@test "encode refuses numbers that the message has not room for" {
    finds VK_RECT '{"nLeft": 1, "nRight": 3000000000}' 1:24 \
        "/nRight: found 3000000000, $carried (read back as -1294967296; nRight: right edge)"
    finds VK_RECT '{"nTop": -4294967296}' 1:10 "/nTop: found -4294967296, $carried (read back as 0; nTop: top edge)"
    finds tagNET_TIME_SECTION '{"dwRecordMask": 257}' 1:18 \
        "/dwRecordMask: found 257, $carried (read back as 1; dwRecordMask: kinds of recording or alarm, one bit each)"
    finds tagVK_TSECT '{"nEndMin": 100}' 1:13 "/nEndMin: found 100, $carried (read back as 10; nEndMin: 0 to 59)"
    run "$JSONPARSER" encode VK_RECT <<<'{"nLeft": -2147483648, "nRight": 2147483647}'
    [ "$status" -eq 0 ]
}

@test "encode refuses fractions where the message has integers" {
    finds tagRANGE '{"fMax": 10.5}' 1:10 "/fMax: found 10.5, $carried (read back as 10; fMax: upper bound)"
    finds tagRANGE '{"fMax": 1e20}' 1:10 "/fMax: found 1e+20, $carried (read back as 2147483600; fMax: upper bound)"
    finds tagRANGE '{"bHasStep": true, "fStep": -0.5}' 1:29 "/fStep: found -0.5, $carried (read back as 0; fStep: increment)"
    run "$JSONPARSER" encode tagRANGE <<<'{"fMax": 10.0, "fMin": -0.0, "bHasStep": true, "fStep": 1e0}'
    [ "$status" -eq 0 ]
    run "$JSONPARSER" encode tagRANGE/float <<<'{"fMax": 10.5, "fMin": 1e20, "bHasStep": true, "fStep": -0.1}'
    [ "$status" -eq 0 ]
}

@test "encode refuses whole numbers that their field has not" {
    finds tagRANGE '{"fMax": 16777217}' 1:10 '/fMax: found 16777217, expected a number that the field has: the nearest is 16777216'
    finds tagRANGE '{"fMin": -1234567890}' 1:10 '/fMin: found -1234567890, expected a number that the field has: the nearest is -1234568000'
    for number in 16777216 16777218 2147483600 2147483648 -1234568000 123456792 0.1 0.123456789123; do
        run "$JSONPARSER" encode tagRANGE/float <<<"{\"fMax\": $number}"
        [ "$status" -eq 0 ]
    done
}

@test "encode takes coordinates to a hundredth of a second, and only those that readers take" {
    for degrees in 0 120.51 120.123456789 359.99999 1e-9; do
        run "$JSONPARSER" encode Coordinate <<<"{\"dbDegrees\": $degrees}"
        [ "$status" -eq 0 ]
    done
    for degrees in 1e25 4294967296.5 -10.5; do
        run --separate-stderr "$JSONPARSER" encode Coordinate <<<"{\"dbDegrees\": $degrees}"
        [ "$status" -eq 1 ]
        [ -z "$output" ]
        [[ "${stderr_lines[0]}" == *":1:15: /dbDegrees: found "*", $carried (read back as "* ]]
    done
}

@test "encode refuses codes without a word" {
    finds VK_COMM_PROP '{"byBaudRate": 200}' 1:16 \
        "/byBaudRate: found 200, $carried (read back as 0; byBaudRate: baud rate: 0 to 9 are 300 to 115200)"
    finds tagCFG_COMM_PROP '{"byStopBit": 3, "byParity": 1}' 1:15 \
        "/byStopBit: found 3, $carried (read back as 0; byStopBit: stop bits: 0, 1, 2 are 1, 1.5, 2)"
    for record in tagFACERECOGNITION_PERSON_INFO tagFACERECOGNITION_PERSON_INFOEX; do
        finds $record '{"bySex": 200}' 1:11 "/bySex: found 200, $carried (read back as 0; bySex: 0 unknown, 1 male, 2 female)"
    done
    finds tagFACERECOGNITION_PERSON_INFOEX '{"nEmotionValidNum": 2, "emEmotions": [2, 99]}' 1:43 \
        "/emEmotions/1: found 99, $carried (read back as 0; emEmotions: face features, 0 to 14; written only)"
    finds tagNET_NETAPP_WIRELESS '{"emAuthMode": 4}' 1:16 \
        "/emAuthMode: found 4, $carried (read back as 0; emAuthMode: authentication: 0 unknown, 1 none, 2 PAP, 3 CHAP)"
    finds tagNET_NETAPP_WIRELESS '{"em3GFluxTactic": -1}' 1:20 "/em3GFluxTactic: found -1, $carried (read back as 1; "*
}

@test "encode refuses what the message leaves out because of another field" {
    finds tagRANGE '{"fDefault": 5}' 1:14 "/fDefault: found 5, $carried (read back as 0; fDefault: default value)"
    finds tagFACERECOGNITION_PERSON_INFO '{"wYear": 1990}' 1:11 "/wYear: found 1990, $carried (read back as 0; wYear: year of birth)"
    finds tagFACERECOGNITION_PERSON_INFO '{"stuFacePicInfo": [{"wWidth": 4}]}' 1:32 \
        "/stuFacePicInfo/0/wWidth: found 4, $carried (read back as 0; wWidth: width, pixels)"
    finds tagFACERECOGNITION_PERSON_INFO '{"szPersonName": "A", "szPersonNameEx": "B"}' 1:18 \
        "/szPersonName: found \"A\", $carried (read back as \"B\"; "*
    finds tagFACERECOGNITION_PERSON_INFOEX '{"nAgeRange": [20, 0]}' 1:16 "/nAgeRange/0: found 20, $carried (read back as 0; "*
    finds tagFACERECOGNITION_PERSON_INFOEX '{"stuCustomPersonInfo": [{"szPersonInfo": "x"}]}' 1:43 \
        "/stuCustomPersonInfo/0/szPersonInfo: found \"x\", $carried (read back as \"\"; szPersonInfo: text)"
    finds tagNET_NETAPP_WIRELESS '{"emAPN": 2, "szAPN": "fleet"}' 1:23 "/szAPN: found \"fleet\", $carried (read back as \"CMNET\"; "*
    finds tagCFG_TIME_SCHEDULE '{"stuTimeSection": [[],[],[],[],[],[],[],[{"nEndHour": 9}]]}' 1:56 \
        "/stuTimeSection/7/0/nEndHour: found 9, $carried (read back as 0; nEndHour: 0 to 23)"
}

@test "encode refuses texts that the message cuts" {
    finds tagFACERECOGNITION_PERSON_INFO "{\"pszComment\": \"$(printf 'x%.0s' {1..101})\"}" 1:16 \
        "/pszComment: found \"xxxx"*"... (101 bytes), $carried (read back as \"xxxx"*"... (100 bytes); pszComment: comment)"
    for text in CN CNX; do  # a text may fill its field: the message has it whole
        run --separate-stderr "$JSONPARSER" encode tagFACERECOGNITION_PERSON_INFO <<<"{\"szCountry\": \"$text\"}"
        [ "$status" -eq 0 ]
        [[ "$output" == *"\"Country\" : \"$text\""* ]]
    done
    run "$JSONPARSER" encode tagFACERECOGNITION_PERSON_INFO <<<"{\"szUID\": \"$(printf '王%.0s' {1..10})ab\"}"
    [ "$status" -eq 0 ]
}

@test "encode takes what the writer never writes, and what says that nothing is known" {
    for form in 'tagNET_TIME_EX {"dwYear": 2024, "dwUTC": 5, "dwReserved": 6}' \
        'tagNET_TIME/date {"dwYear": 2024, "dwHour": 5}' 'tagNET_NETAPP_WIRELESS {"nIndex": 5, "emWorkMode": -1, "emAPN": -1}' \
        'tagFACERECOGNITION_PERSON_INFO {"byAge": 33, "emEmotion": 2, "szPersonName": "王", "byCommentLen": 9}' \
        'tagFACERECOGNITION_PERSON_INFO {"wFacePicNum": 1, "stuFacePicInfo": [{"pszFilePath": "/1.jpg", "bIsDetected": 1}]}' \
        'tagFACERECOGNITION_PERSON_INFOEX {"nAttractive": -1, "bAgeEnable": 1, "nAgeRange": [20, 30], "emRace": 0}' \
        'tagFACERECOGNITION_PERSON_INFOEX {"nEmotionValidNum": 3, "emEmotions": [0, 1, 14]}'; do
        run --separate-stderr "$JSONPARSER" encode "${form%% *}" <<<"${form#* }"
        [ "$status" -eq 0 ]
        [ -n "$output" ]
    done
}

@test "encode reports all that a message has not, in the order of the document, and nothing that follows from it" {
    run --separate-stderr "$JSONPARSER" encode tagNET_TIME_EX <<<'{"dwDay": 5,
        "dwMonth": 123, "dwHour": 9, "dwSecond": 700,
        "dwYear": 20240}'
    [ "$status" -eq 1 ]
    [ -z "$output" ]
    [ "${#stderr_lines[@]}" -eq 9 ]
    [ "${stderr_lines[0]}" = "jsonparser: <stdin>:2:20: /dwMonth: found 123, $carried (read back as 12; dwMonth: 1 to 12)" ]
    [ "${stderr_lines[1]}" = '    2 |         "dwMonth": 123, "dwHour": 9, "dwSecond": 700,' ]
    [ "${stderr_lines[2]}" = '      |                    ^' ]
    [ "${stderr_lines[3]}" = "jsonparser: <stdin>:2:50: /dwSecond: found 700, $carried (read back as 70; dwSecond: 0 to 59)" ]
    [ "${stderr_lines[6]}" = "jsonparser: <stdin>:3:19: /dwYear: found 20240, $carried (read back as 2024; dwYear: full year)" ]
}

@test "encode reports what no message could have along with what this one has not" {
    run --separate-stderr "$JSONPARSER" encode tagRANGE <<<'{"fDefault": 5, "fMax": 10.5, "fMin": "NaN", "bHasStep": true, "fStep": 2}'
    [ "$status" -eq 1 ]
    [ "${#stderr_lines[@]}" -eq 9 ]
    [[ "${stderr_lines[0]}" == *":1:14: /fDefault: found 5, "* ]]
    [[ "${stderr_lines[3]}" == *":1:25: /fMax: found 10.5, "* ]]
    [[ "${stderr_lines[6]}" == *":1:39: /fMin: found \"NaN\", "* ]]
}

@test "encode reports what no message could have along with what is wrong in the form" {
    run --separate-stderr "$JSONPARSER" encode tagRANGE <<<'{"fMax": "NaN", "other": 1, "fMin": "Infinity", "bHasStep": 1}'
    [ "$status" -eq 1 ]
    [ "${#stderr_lines[@]}" -eq 12 ]
    [[ "${stderr_lines[0]}" == *":1:10: /fMax: found \"NaN\", "* ]]
    [[ "${stderr_lines[3]}" == *":1:17: /other: "* ]]
    [[ "${stderr_lines[6]}" == *":1:37: /fMin: found \"Infinity\", "* ]]
    [[ "${stderr_lines[9]}" == *":1:61: /bHasStep: "* ]]
}

@test "encode takes no form for a record that is none" {
    for form in '[1]' 'null' '{"stuFacePicInfo": [1, {"pszFilePath": 1}]}' '{"stuFacePicInfo": {"dwOffset": 1}}' \
        "{\"stuFacePicInfo\": [$(printf '{},%.0s' {1..48}){\"wWidth\": 1}]}"; do
        for record in tagFACERECOGNITION_PERSON_INFO tagFACERECOGNITION_PERSON_INFOEX; do
            run --separate-stderr "$JSONPARSER" encode $record <<<"$form"
            [ "$status" -eq 1 ]
            [[ "${stderr_lines[0]}" == *", expected a"* ]]
        done
    done
    for form in '{"stuTimeSection": [[1], 2, [[]]]}' '{"stuTimeSection": [[{}, {}, {}, {}, {}, {}, {"nEndMin": 1}]]}'; do
        run --separate-stderr "$JSONPARSER" encode tagCFG_TIME_SCHEDULE <<<"$form"
        [ "$status" -eq 1 ]
        [[ "${stderr_lines[0]}" == *", expected an "* ]]
    done
}

@test "encode goes on with the next document" {
    echo '{"nRight": 3000000000}' >"$BATS_TEST_TMPDIR/bad"
    echo '{"nRight": 3}' >"$BATS_TEST_TMPDIR/good"
    run --separate-stderr "$JSONPARSER" encode VK_RECT "$BATS_TEST_TMPDIR/bad" "$BATS_TEST_TMPDIR/good"
    [ "$status" -eq 1 ]
    [ "$(tr -d ' \n' <<<"$output")" = '[0,0,3,0]' ]
    [[ "${stderr_lines[0]}" == *"/bad:1:12: /nRight: found 3000000000, "* ]]
}

@test "encode says the same of lines, and goes on" {
    run --separate-stderr "$JSONPARSER" encode tagRANGE --lines --jobs 2 <<<'{"fMax": 1}
{"fMax": 10.5, "fMin": "NaN"}
{"fMin": -2}'
    [ "$status" -eq 1 ]
    [ "${lines[0]}" = '{"Max":1,"Min":0}' ]
    [ "${lines[1]}" = '{"Max":0,"Min":-2}' ]
    [ "${#lines[@]}" -eq 2 ]
    [ "${#stderr_lines[@]}" -eq 7 ]
    [ "${stderr_lines[0]}" = "jsonparser: <stdin>:2:10: /fMax: found 10.5, $carried (read back as 10; fMax: upper bound)" ]
    [ "${stderr_lines[3]}" = 'jsonparser: <stdin>:2:24: /fMin: found "NaN", expected a finite number, JSON has no other' ]
    [ "${stderr_lines[6]}" = 'jsonparser: 1 of 3 lines are bad' ]
}

@test "a writer's trace is a remark that names the document, and no finding" {
    echo '{}' >"$BATS_TEST_TMPDIR/unknown.json"
    run --separate-stderr "$JSONPARSER" encode tagNET_NETAPP_WIRELESS "$BATS_TEST_TMPDIR/unknown.json"
    [ "$status" -eq 0 ]
    [[ "$output" == '{'*'}' ]]
    [ "${#stderr_lines[@]}" -eq 4 ]
    [ "${stderr_lines[0]}" = "jsonparser: $BATS_TEST_TMPDIR/unknown.json: remark: emAuthMode is unknown!" ]
    [ "${stderr_lines[1]}" = "jsonparser: $BATS_TEST_TMPDIR/unknown.json: remark: 3GFluxTactic is unknown!" ]
    [ "${stderr_lines[2]}" = "jsonparser: $BATS_TEST_TMPDIR/unknown.json: remark: Day3GFluxTactic is unknown!" ]
    [ "${stderr_lines[3]}" = "jsonparser: $BATS_TEST_TMPDIR/unknown.json: remark: Day3GFluxAction is unknown!" ]
}

@test "remarks do not stand beside findings" {
    run --separate-stderr "$JSONPARSER" encode tagNET_NETAPP_WIRELESS <<<'{"emAuthMode": 9}'
    [ "$status" -eq 1 ]
    [ -z "$output" ]
    [[ "$stderr" != *remark* ]]
    [ "${#stderr_lines[@]}" -eq 3 ]
}

@test "remarks on lines name the line, keep the order, and make none bad" {
    for i in $(seq 1 200); do
        echo "{\"emAuthMode\": $((i % 2)), \"em3GFluxTactic\": 1, \"emDay3GFluxTactic\": 1, \"emDay3GFluxAction\": 1}"
    done >"$BATS_TEST_TMPDIR/lines"
    for jobs in 1 8; do
        run --separate-stderr "$JSONPARSER" encode tagNET_NETAPP_WIRELESS --lines --jobs $jobs "$BATS_TEST_TMPDIR/lines"
        [ "$status" -eq 0 ]
        [ "${#lines[@]}" -eq 200 ]
        [ "$stderr" = "$(for i in $(seq 2 2 200); do echo "jsonparser: $BATS_TEST_TMPDIR/lines:$i: remark: emAuthMode is unknown!"; done)" ]
    done
}

@test "a remark is coloured as a warning" {
    run --separate-stderr "$JSONPARSER" --color always encode tagNET_NETAPP_WIRELESS <<<'{}'
    [ "$status" -eq 0 ]
    warning=${stderr_lines[0]%%jsonparser:*}
    run --separate-stderr "$JSONPARSER" --color always encode VK_RECT <<<'[]'
    [ "$status" -eq 1 ]
    [ -n "$warning" ]
    [ "$warning" != "${stderr_lines[0]%%jsonparser:*}" ]
}

@test "encode reports every defect with its place and writes nothing" {
    run --separate-stderr bash -c 'echo "{\"fMin\": 1e300, \"other\": 1, \"bHasStep\": 1, \"fStep\": \"x\"}" |
        "$JSONPARSER" encode tagRANGE'
    [ "$status" -eq 1 ]
    [ "$output" = "" ]
    [ "${#stderr_lines[@]}" -eq 12 ]
    [ "${stderr_lines[0]}" = 'jsonparser: <stdin>:1:10: /fMin: found 1e+300, expected a number in range, "NaN", "Infinity" or "-Infinity"' ]
    [ "${stderr_lines[3]}" = 'jsonparser: <stdin>:1:17: /other: found "other", expected a field of tagRANGE' ]
    [ "${stderr_lines[6]}" = "jsonparser: <stdin>:1:41: /bHasStep: found 1, expected true or false" ]
    [ "${stderr_lines[9]}" = 'jsonparser: <stdin>:1:53: /fStep: found "x", expected a number in range, "NaN", "Infinity" or "-Infinity"' ]
}

@test "encode refuses numbers out of range" {
    for form in '{"dwYear": -1}' '{"dwYear": 4294967296}' '{"dwYear": 1.0}' '{"dwYear": "1"}' '{"dwYear": null}'; do
        run bash -c 'echo "$1" | "$JSONPARSER" encode tagNET_TIME_EX' _ "$form"
        [ "$status" -eq 1 ]
        [[ "${lines[0]}" == *"<stdin>:1:12: /dwYear: found "*", expected an integer from 0 to 4294967295" ]]
    done
}

@test "encode of a record that is only read is a usage error" {
    run "$JSONPARSER" encode trafficcar
    [ "$status" -eq 2 ]
    [ "$output" = 'jsonparser: tagDEV_EVENT_TRAFFIC_TRAFFICCAR_INFO is only read, there is nothing to encode' ]
}

@test "encode of what is no object says so" {
    run bash -c 'echo "[1]" | "$JSONPARSER" encode tagRANGE'
    [ "$status" -eq 1 ]
    [ "${lines[0]}" = 'jsonparser: <stdin>:1:1: /: found an array of 1, expected an object with the fields of tagRANGE' ]
}
