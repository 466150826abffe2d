bats_require_minimum_version 1.5.0

# decode: a record out of a message.

CAR=tagDEV_EVENT_TRAFFIC_TRAFFICCAR_INFO

@test "decode prints the traffic event for people" {
    run "$JSONPARSER" decode $CAR --at /params/Events/0/TrafficCar "$MESSAGES/traffic_event.json"
    [ "$status" -eq 0 ]
    [ "${lines[0]}" = "tagDEV_EVENT_TRAFFIC_TRAFFICCAR_INFO (2744 bytes)" ]
    [ "${lines[1]}" = '  szPlateNumber             "京A·D12345"' ]
    [[ "$output" == *'pszDeviceAddress          "中山路与解放路交叉口"'* ]]
    [[ "$output" == *'stuUTC                    {dwYear 2024, dwMonth 1, dwDay 5, dwHour 9, dwMinute 30, dwSecond 0}'* ]]
    [[ "$output" != *byReserved* ]]
}

@test "decode --json prints JSON with the fields in the record's order" {
    run "$JSONPARSER" decode $CAR --json --at /params/Events/0/TrafficCar "$MESSAGES/traffic_event.json"
    [ "$status" -eq 0 ]
    [ "${lines[0]}" = "{" ]
    [ "${lines[1]}" = '  "szPlateNumber": "京A·D12345",' ]
    [ "${lines[-1]}" = "}" ]
    python3 -c 'import json, sys; json.loads(sys.argv[1])' "$output"
}

@test "decode shows texts that are not sent, and heap texts that are null" {
    run "$JSONPARSER" decode $CAR --at /TrafficCar "$MESSAGES/traffic_minimal.json"
    [ "$status" -eq 0 ]
    [ "${lines[1]}" = '  szPlateNumber             ""' ]
    [[ "$output" == *'pszDeviceAddress          null'* ]]
    [[ "$output" == *'nVehicleSize              -1'* ]]
}

@test "decode reads standard input, named - or not named" {
    run bash -c 'echo "[1, 2, 3, 4]" | "$JSONPARSER" decode VK_RECT -'
    [ "$status" -eq 0 ]
    [ "${lines[4]}" = "  nBottom  4" ]
    run bash -c 'echo "[1, 2, 3, 4]" | "$JSONPARSER" decode VK_RECT'
    [ "${lines[4]}" = "  nBottom  4" ]
}

@test "decode takes a part of a record's name, in any case" {
    run bash -c 'echo "[1, 2, 3, 4]" | "$JSONPARSER" decode vk_rect'
    [ "$status" -eq 0 ]
    run bash -c 'echo "{}" | "$JSONPARSER" decode trafficcar'
    [ "$status" -eq 0 ]
}

@test "decode of an ambiguous name lists what it could be" {
    run bash -c 'echo "{}" | "$JSONPARSER" decode RANGE'
    [ "$status" -eq 2 ]
    [ "$output" = 'jsonparser: found "RANGE", expected one of tagRANGE, tagRANGE/float' ]
}

@test "decode of an unknown name is a usage error" {
    run "$JSONPARSER" decode NoSuchRecord
    [ "$status" -eq 2 ]
    [ "$output" = 'jsonparser: found "NoSuchRecord", expected the name of a record (see: jsonparser records)' ]
}

@test "decode of a record that is only written is a usage error" {
    run "$JSONPARSER" decode _VKDEVTIME
    [ "$status" -eq 2 ]
    [ "$output" = 'jsonparser: _VKDEVTIME is only written, there is nothing to decode' ]
}

@test "decode of several files goes on after a bad one and heads each" {
    echo "[1, 2" >"$BATS_TEST_TMPDIR/bad.json"
    echo "[1, 2]" >"$BATS_TEST_TMPDIR/good.json"
    run --separate-stderr "$JSONPARSER" decode VK_POINT "$BATS_TEST_TMPDIR/bad.json" "$BATS_TEST_TMPDIR/good.json"
    [ "$status" -eq 1 ]
    [ "${lines[0]}" = "== $BATS_TEST_TMPDIR/bad.json" ]
    [ "${lines[1]}" = "== $BATS_TEST_TMPDIR/good.json" ]
    [ "${lines[4]}" = "  ny  2" ]
    [[ "$stderr" == "jsonparser: $BATS_TEST_TMPDIR/bad.json:2:1: "* ]]
}

@test "decode heads standard input by its name, and shows a file's name harmlessly" {
    file=$BATS_TEST_TMPDIR/$'a\e[31m.json'
    echo "[1, 2]" >"$file"
    run "$JSONPARSER" decode VK_POINT - "$file" <<<"[3, 4]"
    [ "$status" -eq 0 ]
    [ "${lines[0]}" = "== <stdin>" ]
    [ "${lines[4]}" = "== $BATS_TEST_TMPDIR/a\x1b[31m.json" ]
}

@test "decode says what a converter does not take, shows the record and gives 1" {
    run --separate-stderr bash -c 'echo "[1, 2, 3]" | "$JSONPARSER" decode VK_RECT'
    [ "$status" -eq 1 ]
    [ "${stderr_lines[0]}" = 'jsonparser: <stdin>:1:1: /: found an array of 3, expected a whole VK_RECT' ]
    [ "${lines[1]}" = "  nLeft    0" ]
}

@test "decode names line and column of what is no JSON" {
    run bash -c 'printf "{\"a\":\n  [1,]}" | "$JSONPARSER" decode VK_RECT'
    [ "$status" -eq 1 ]
    [[ "$output" == "jsonparser: <stdin>:2:6: "* ]]
}

@test "decode --at names the place that is missing" {
    run "$JSONPARSER" decode $CAR --at /params/Events/7/TrafficCar "$MESSAGES/traffic_event.json"
    [ "$status" -eq 1 ]
    [ "${lines[0]}" = "jsonparser: $MESSAGES/traffic_event.json:6:15: /params/Events/7: found an array of 1 without it, expected a value" ]
}

@test "decode --at understands escapes and array indexes" {
    run bash -c 'echo "{\"a/b\": {\"c~d\": [0, [1, 2]]}}" | "$JSONPARSER" decode VK_POINT --at /a~1b/c~0d/1'
    [ "$status" -eq 0 ]
    [ "${lines[1]}" = "  nx  1" ]
}

@test "decode of an unreadable file gives 3" {
    run "$JSONPARSER" decode VK_RECT "$BATS_TEST_TMPDIR/missing.json"
    [ "$status" -eq 3 ]
    [ "$output" = "jsonparser: $BATS_TEST_TMPDIR/missing.json: cannot be read: No such file or directory" ]
    run "$JSONPARSER" decode VK_RECT "$BATS_TEST_TMPDIR"
    [ "$status" -eq 3 ]
    [ "$output" = "jsonparser: $BATS_TEST_TMPDIR: cannot be read: Is a directory" ]
}

@test "decode --hex shows the record's bytes" {
    run bash -c 'echo "[258, -1]" | "$JSONPARSER" decode VK_POINT --hex'
    [ "$status" -eq 0 ]
    [[ "${lines[3]}" == *"02 01 ff ff"* ]]
}

@test "decode prints valid UTF-8 whatever a text holds" {
    export TOOL_LOCALE=  # of bytes that are, or are not, UTF-8
    run bash -c 'printf "{\"PlateType\": \"x\xe4\xba\"}" | "$JSONPARSER" decode trafficcar --lenient'
    [ "$status" -eq 0 ]
    [[ "$output" == *'szPlateTypeText           "x\xe4\xba"'* ]]
    iconv -f UTF-8 -t UTF-8 <<<"$output" >/dev/null
    run bash -c 'printf "{\"PlateType\": \"x\xe4\xba\"}" | "$JSONPARSER" decode trafficcar --lenient --json'
    [[ "$output" == *'"szPlateTypeText": {"hex": "78e4ba"}'* ]]
}

@test "a full disk is noticed" {
    [ -e /dev/full ] || skip "no /dev/full"
    run bash -c 'echo "[1, 2]" | "$JSONPARSER" decode VK_POINT >/dev/full'
    [ "$status" -eq 3 ]
    [ "$output" = "jsonparser: cannot write to standard output: No space left on device" ]
}

@test "fields that the converter leaves alone are zero" {
    run "$JSONPARSER" decode tagDEV_SRC_INFO --at /params/Events/0/Data/Source "$MESSAGES/event_source.json"
    [ "$status" -eq 0 ]
    [[ "${lines[2]}" == *"dwMillisecond 250, dwUTC 0, dwReserved 0}" ]]
    run "$JSONPARSER" decode _NET_GPS_STATUS_INFO --hex <<<'{}'
    [ "$status" -eq 0 ]
    [ "$(grep -cE ' +[0-9]+ ( 00){16} ' <<<"$output")" -eq 39 ]
}
