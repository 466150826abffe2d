bats_require_minimum_version 1.5.0

# encode: a message out of a record.

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

@test "encode takes NaN and infinities" {
    run bash -c 'echo "{\"fMax\": \"Infinity\", \"fMin\": \"NaN\"}" | "$JSONPARSER" encode tagRANGE'
    [ "$status" -eq 0 ]
    [[ "$output" == *'"Max" : 2147483647'* ]]
    [[ "$output" == *'"Min" : 0'* ]]
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
