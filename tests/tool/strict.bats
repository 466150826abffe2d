# decode --strict: what the record has otherwise than the message.
bats_require_minimum_version 1.5.0

CAR=tagDEV_EVENT_TRAFFIC_TRAFFICCAR_INFO

setup_file() {
    cat >"$BATS_FILE_TMPDIR/ten.json" <<'END'
{
  "TrafficCar": {
    "PlateNumer": "A12345",
    "PlateType": "a type whose name is much too long",
    "Speed": "87",
    "Lane": 2.9,
    "VehicleSize": "Meduim",
    "Redundance": [1, 2, 3, 4, 5, 6, 7, 8, 9],
    "VehicleColorRGB": [255, 0, 0],
    "RecNo": -1,
    "Weight": "heavy",
    "StereoGarage": {"DekNo": 2, "FreeDeckCount": 4}
  }
}
END
}

# Decodes standard input as a traffic car; $output is what is wrong.
strict_car() { run --separate-stderr "$JSONPARSER" decode $CAR --strict; output=$stderr; }

@test "a message with ten defects gives ten findings, each at its place, in one run" {
    run --separate-stderr "$JSONPARSER" decode $CAR --strict --at /TrafficCar "$BATS_FILE_TMPDIR/ten.json"
    [ "$status" -eq 1 ]
    findings=$(grep '^jsonparser: ' <<<"$stderr" | sed "s|$BATS_FILE_TMPDIR/||")
    diff -u - <(echo "$findings") <<'END'
jsonparser: ten.json:3:5: /TrafficCar/PlateNumer: nothing reads this; did you mean PlateNumber?
jsonparser: ten.json:4:18: /TrafficCar/PlateType: found "a type whose name is much too long", expected at most 31 bytes (cut from 34 to 31 bytes)
jsonparser: ten.json:5:14: /TrafficCar/Speed: found "87", expected a number (wrong type, read as 0)
jsonparser: ten.json:6:13: /TrafficCar/Lane: found 2.9, expected a whole number (fraction cut)
jsonparser: ten.json:7:20: /TrafficCar/VehicleSize: found "Meduim", expected "Medium" or another keyword (keyword unknown; did you mean "Medium"?)
jsonparser: ten.json:8:44: /TrafficCar/Redundance/8: nothing reads this
jsonparser: ten.json:9:24: /TrafficCar/VehicleColorRGB: found an array of 3, expected another number of elements (refused for its size, left as it was)
jsonparser: ten.json:10:14: /TrafficCar/RecNo: found -1, expected 0 to 4294967295 (wrapped to the low 32 bits)
jsonparser: ten.json:11:15: /TrafficCar/Weight: found "heavy", expected an integer of 32 bits (refused by isInt, left as it was)
jsonparser: ten.json:12:22: /TrafficCar/StereoGarage/DekNo: nothing reads this; did you mean DeckNo?
END
}

@test "each finding has an excerpt of the document with a caret" {
    run --separate-stderr "$JSONPARSER" decode $CAR --strict --at /TrafficCar "$BATS_FILE_TMPDIR/ten.json"
    [[ "$stderr" == *$'\n    5 |     "Speed": "87",\n      |              ^\n'* ]]
    [[ "$stderr" == *$'\n    3 |     "PlateNumer": "A12345",\n      |     ^\n'* ]]
    [ "$(grep -c '^ *| *^$' <<<"$stderr")" -eq 10 ]
}

@test "the record is printed all the same" {
    run --separate-stderr "$JSONPARSER" decode $CAR --strict --at /TrafficCar "$BATS_FILE_TMPDIR/ten.json"
    strict=$output
    run --separate-stderr "$JSONPARSER" decode $CAR --at /TrafficCar "$BATS_FILE_TMPDIR/ten.json"
    [ "$status" -eq 0 ]
    [ "$stderr" = "" ]
    [ "$strict" = "$output" ]
}

@test "--json goes with --strict, and prints nothing but JSON" {
    run --separate-stderr "$JSONPARSER" decode $CAR --strict --json --at /TrafficCar "$BATS_FILE_TMPDIR/ten.json"
    [ "$status" -eq 1 ]
    python3 -m json.tool <<<"$output" >/dev/null
}

@test "--hex goes with --strict, but not with --json" {
    run --separate-stderr "$JSONPARSER" decode $CAR --strict --hex --at /TrafficCar "$BATS_FILE_TMPDIR/ten.json"
    [ "$status" -eq 1 ]
    grep -Eq '^     0  ([0-9a-f]{2} ){16} szPlateNumber' <<<"$output"
    run "$JSONPARSER" decode $CAR --json --hex <<<'{}'
    [ "$status" -eq 2 ]
    [ "$output" = "jsonparser: found --json with --hex, expected only one (see: jsonparser decode --help)" ]
}

@test "a message without findings is good" {
    strict_car <<<'{"PlateNumber": "A1", "Speed": 87}'
    [ "$status" -eq 0 ]
    [ "$output" = "" ]
}

@test "missing and null members are no findings" {
    strict_car <<<'{"Speed": null, "StereoGarage": null, "UTC": null, "Redundance": []}'
    [ "$status" -eq 0 ]
    [ "$output" = "" ]
}

@test "a number that is wrapped is a finding" {
    strict_car <<<'{"ActualGain": 257}'
    [ "$status" -eq 1 ]
    [[ "$output" == "jsonparser: <stdin>:1:16: /ActualGain: found 257, expected 0 to 255 (wrapped to the low 8 bits)"* ]]
}

@test "a number beyond the range is a finding" {
    strict_car <<<'{"Speed": 1e300}'
    [[ "$output" == *"found 1e+300, expected -2147483648 to 2147483647 (beyond the range, the nearest limit taken)"* ]]
}

@test "a text that fills its field is a finding" {
    strict_car <<<'{"ChannelName": "0123456789abcdef0123456789abcdef"}'
    [ "$status" -eq 1 ]
    [[ "$output" == *"expected at most 31 bytes (fills all 32 bytes, its terminator is in the byte behind the field)"* ]]
}

@test "characters that the local encoding lacks are findings" {
    LOCPATH=$LOCALES LC_ALL=zh_CN.GBK strict_car <<<'{"PlateNumber": "京A😀"}'
    [ "$status" -eq 1 ]
    [[ "$output" == *'expected characters of the local encoding (1 character replaced by "?")'* ]]
}

@test "a text that cannot be scanned is a finding" {
    run "$JSONPARSER" decode tagNET_TIME --strict <<<'"2024-01"'
    [ "$status" -eq 1 ]
    [[ "$output" == *'found "2024-01", expected a text like %04d-%02d-%02d %02d:%02d:%02d (2 of 6 numbers converted)'* ]]
}

@test "an object of the wrong type is one finding, not one for each of its members" {
    strict_car <<<'{"StereoGarage": [1, 2]}'
    [ "$status" -eq 1 ]
    [ "$(grep -c '^jsonparser: ' <<<"$output")" -eq 1 ]
    [[ "$output" == *"expected an object (wrong type, read as no members)"* ]]
}

@test "a record of the wrong type is a finding at its place" {
    strict_car <<<'[1]'
    [ "$status" -eq 1 ]
    [[ "$output" == "jsonparser: <stdin>:1:1: /: found an array of 1, expected an object (wrong type, read as no members)"* ]]
}

@test "a record that is not whole is one finding" {
    run --separate-stderr "$JSONPARSER" decode VK_RECT --strict <<<'[1, 2, 3]'
    [ "$status" -eq 1 ]
    [ "$(grep -c '^jsonparser: ' <<<"$stderr")" -eq 1 ]
    [[ "$stderr" == *"found an array of 3, expected another number of elements"* ]]
}

@test "findings of several files name their file" {
    echo '{"Lane": 1.5}' >"$BATS_TEST_TMPDIR/a.json"
    echo '{"Lane": 2.5}' >"$BATS_TEST_TMPDIR/b.json"
    run --separate-stderr "$JSONPARSER" decode $CAR --strict "$BATS_TEST_TMPDIR/a.json" "$BATS_TEST_TMPDIR/b.json"
    [ "$status" -eq 1 ]
    [[ "$stderr" == *"a.json:1:10: /Lane: found 1.5"*"b.json:1:10: /Lane: found 2.5"* ]]
}

@test "a member's name with control characters is shown harmlessly" {
    strict_car <<<'{"a\u001b[31m": 1}'
    [ "$status" -eq 1 ]
    [[ "$output" != *$'\e'* ]]
}

@test "without --strict nothing of this is a finding" {
    run --separate-stderr "$JSONPARSER" decode $CAR <<<'{"Speed": "x", "Sped": 1}'
    [ "$status" -eq 0 ]
    [ "$stderr" = "" ]
}

@test "--strict with --lines names the line of each finding" {
    run --separate-stderr "$JSONPARSER" decode $CAR --strict --lines <<<$'{"Speed": 1}\n{"Speed": "x"}'
    [ "$status" -eq 1 ]
    [[ "$stderr" == *'<stdin>:2:11: /Speed: found "x", expected a number (wrong type, read as 0)'* ]]
    [ "${#lines[@]}" -eq 2 ]
}
