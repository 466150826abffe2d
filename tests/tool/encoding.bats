bats_require_minimum_version 1.5.0

# Records in the local encoding, in and out as UTF-8.

CAR=tagDEV_EVENT_TRAFFIC_TRAFFICCAR_INFO

decode_car() { "$JSONPARSER" decode $CAR "$@" --at /params/Events/0/TrafficCar "$MESSAGES/traffic_event.json"; }

@test "decode under GBK holds GBK and prints UTF-8" {
    export LOCPATH=$LOCALES LC_ALL=zh_CN.GBK
    run decode_car
    [ "$status" -eq 0 ]
    [ "${lines[1]}" = '  szPlateNumber             "京A·D12345"' ]
    [[ "$output" == *'szDrivingDirection        ["Approach", "南京路", "人民广场"]'* ]]
    [[ "$output" == *'pszDeviceAddress          "中山路与解放路交叉口"'* ]]
    run decode_car --hex
    [[ "$output" == *"     0  be a9 41 a1 a4 44 31 32 33 34 35 00 "*"szPlateNumber"* ]]
}

@test "decode under ISO-8859-1 has question marks for what it cannot hold" {
    export LOCPATH=$LOCALES LC_ALL=de_DE.ISO-8859-1
    run decode_car
    [ "$status" -eq 0 ]
    [ "${lines[1]}" = '  szPlateNumber             "?A·D12345"' ]
    run bash -c 'echo "{\"PlateNumber\": \"MÜ 5 €\"}" | "$JSONPARSER" decode trafficcar --hex'
    [ "${lines[1]}" = '  szPlateNumber             "MÜ 5 ?"' ]
    [[ "$output" == *"     0  4d dc 20 35 20 3f 00 "* ]]
}

@test "decode --json prints the same under GBK as under UTF-8" {
    LOCPATH=$LOCALES LC_ALL=zh_CN.GBK decode_car --json >"$BATS_TEST_TMPDIR/gbk.json"
    LC_ALL=C.UTF-8 decode_car --json >"$BATS_TEST_TMPDIR/utf8.json"
    diff "$BATS_TEST_TMPDIR/gbk.json" "$BATS_TEST_TMPDIR/utf8.json"
}

@test "numbers do not follow the locale" {
    export LOCPATH=$LOCALES LC_ALL=de_DE.UTF-8
    run decode_car
    [[ "$output" == *'fVehicleLength            4.62'* ]]
    [[ "$output" == *'fActualShutter            2.5'* ]]
    run bash -c 'echo "{\"fMax\": 2.5, \"fMin\": -0.5}" | "$JSONPARSER" encode tagRANGE/float'
    [ "$status" -eq 0 ]
    [[ "$output" == *'"Max" : 2.5'* ]]
    [[ "$output" == *'"Min" : -0.5'* ]]
}

@test "encode under ISO-8859-1 refuses characters that it does not have" {
    export LOCPATH=$LOCALES LC_ALL=de_DE.ISO-8859-1
    for field in szUID pszGroupID; do
        run --separate-stderr "$JSONPARSER" encode tagFACERECOGNITION_PERSON_INFO <<<"{\"$field\": \"5 €\"}"
        [ "$status" -eq 1 ]
        [ -z "$output" ]
        [[ "${stderr_lines[0]}" == *"/$field: found \"5 €\", expected a text of characters that the local encoding has" ]]
    done
    run --separate-stderr "$JSONPARSER" encode tagFACERECOGNITION_PERSON_INFO <<<'{"szUID": "Mü?", "pszGroupID": "Ü"}'
    [ "$status" -eq 0 ]
    [[ "$output" == *'"UID" : "Mü?"'* ]]
}

@test "encode under GBK refuses bytes that are no text there, and takes texts that fill their field" {
    export LOCPATH=$LOCALES LC_ALL=zh_CN.GBK
    run --separate-stderr "$JSONPARSER" encode tagFACERECOGNITION_PERSON_INFO <<<'{"szUID": {"hex": "41ff"}}'
    [ "$status" -eq 1 ]
    [[ "${stderr_lines[0]}" == *'/szUID: found an object, expected a value that the message carries (read back as "A?"; '* ]]
    text=$(printf '王%.0s' {1..16})
    run --separate-stderr "$JSONPARSER" encode tagFACERECOGNITION_PERSON_INFO <<<"{\"szUID\": \"$text\", \"szCountry\": \"A王\"}"
    [ "$status" -eq 0 ]
    [[ "$output" == *"\"UID\" : \"$text\""* ]]
    [[ "$output" == *'"Country" : "A王"'* ]]
}
