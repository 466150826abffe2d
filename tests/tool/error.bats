# The tool's error command.

@test "maps a hexadecimal code" {
    run "$JSONPARSER" error 0x10030010
    [ "$status" -eq 0 ]
    [ "$output" = "0x10030010 (268632080) -> 0x8000004F" ]
}

@test "maps a decimal code" {
    run "$JSONPARSER" error 286064913
    [ "$status" -eq 0 ]
    [ "$output" = "0x110D0111 (286064913) -> 0x0000000C" ]
}

@test "maps a negative code as replies carry it" {
    run "$JSONPARSER" error -267976704
    [ "$status" -eq 0 ]
    [ "$output" = "0xF0070000 (-267976704) -> 0x80000437" ]
    run "$JSONPARSER" error -267911169 --json
    [ "$status" -eq 0 ]
    [ "$output" = '{"code": -267911169, "device": "0xF007FFFF", "library": "0x8000043D"}' ]
}

@test "maps the same code as a large positive number and in hexadecimal" {
    for code in 4026990592 0xF0070000 0xf0070000 0XF0070000 0x00000000F0070000; do
        run "$JSONPARSER" error "$code"
        [ "$status" -eq 0 ]
        [ "$output" = "0xF0070000 (-267976704) -> 0x80000437" ]
    done
}

@test "maps no error to no error" {
    for code in 0 0x0 -0; do
        run "$JSONPARSER" error "$code"
        [ "$status" -eq 0 ]
        [ "$output" = "0x00000000 (0) -> 0x00000000" ]
    done
}

@test "prints both codes as JSON" {
    run "$JSONPARSER" error --json 0x11350000
    [ "$status" -eq 0 ]
    [ "$output" = '{"code": 288686080, "device": "0x11350000", "library": "0xFFFFFFFF"}' ]
}

@test "says that a code is unknown" {
    run "$JSONPARSER" error 0x12345678
    [ "$status" -eq 1 ]
    [ "$output" = "jsonparser: 0x12345678 (305419896): no known device error code, a reply with it reads as 0x80000015" ]
    run bash -c '"$JSONPARSER" error 0x12345678 2>/dev/null'
    [ -z "$output" ]
    run bash -c '"$JSONPARSER" error 1 --json 2>/dev/null'
    [ "$status" -eq 1 ]
    [ "$output" = '{"code": 1, "device": "0x00000001", "library": null}' ]
}

@test "takes the whole range of 32 bits" {
    for code in -2147483648 4294967295 0xFFFFFFFF 2147483648 -1; do
        run "$JSONPARSER" error "$code"
        [ "$status" -eq 1 ]
        [[ "$output" == *"no known device error code"* ]]
    done
}

@test "refuses what is no code with one line" {
    for code in -2147483649 4294967296 0x100000000 99999999999999999999 "" abc 12a 1.5 0x 0xG 0x-1 -0x1 +1 " 1" "1 " \
        0b1 - 1e3; do
        run "$JSONPARSER" error "$code"
        [ "$status" -eq 2 ]
        [ "${#lines[@]}" -eq 1 ]
        [ "$output" = "jsonparser: found \"$code\", expected a device error code: -2147483648 to 4294967295, or 0x and hexadecimal digits up to 0xFFFFFFFF" ]
    done
}

@test "refuses a missing, a second and an unknown argument with one line" {
    for arguments in "" "1 2" "--hex 1" "-x" "--json"; do
        run "$JSONPARSER" error $arguments
        [ "$status" -eq 2 ]
        [ "${#lines[@]}" -eq 1 ]
        [[ "$output" == "jsonparser: "* ]]
    done
}

@test "notices that the output cannot be written" {
    run bash -c '"$JSONPARSER" error 0 >/dev/full'
    [ "$status" -eq 3 ]
}
