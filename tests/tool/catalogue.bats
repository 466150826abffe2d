bats_require_minimum_version 1.5.0

# records, fields, and the command line itself.

@test "records lists every record with its ways" {
    run "$JSONPARSER" records
    [ "$status" -eq 0 ]
    [[ "$output" == *"tagDEV_EVENT_TRAFFIC_TRAFFICCAR_INFO     2744 bytes  decode "* ]]
    [[ "$output" == *"VK_RECT                                    32 bytes  decode, encode"* ]]
    [[ "$output" == *"_VKDEVTIME                                  4 bytes  encode "* ]]
}

@test "records --json is JSON" {
    run "$JSONPARSER" records --json
    [ "$status" -eq 0 ]
    python3 -c 'import json, sys
records = {r["name"]: r for r in json.loads(sys.argv[1])}
assert records["VK_POINT"] == {"name": "VK_POINT", "size": 4, "decode": True, "encode": True, "meaning": "point"}' "$output"
}

@test "every record of the list can be asked for its fields" {
    for record in $("$JSONPARSER" records | cut -d' ' -f1); do
        "$JSONPARSER" fields "$record" >/dev/null
        "$JSONPARSER" fields "$record" --json | python3 -c 'import json, sys; json.load(sys.stdin)'
    done
}

@test "fields shows offset, size, type, name and meaning" {
    run "$JSONPARSER" fields VK_RECT
    [ "$status" -eq 0 ]
    [ "${lines[0]}" = "VK_RECT (32 bytes)" ]
    [ "${lines[2]}" = "      8      8  int64  nTop     top edge" ]
    run "$JSONPARSER" fields trafficcar
    [[ "$output" == *"932    768  char[3][256]"*"szDrivingDirection"* ]]
    [[ "$output" == *"1752    120  reserved"* ]]
}

@test "fields takes the name of a record that stands only in others" {
    run "$JSONPARSER" fields tagGPS_TIME
    [ "$status" -eq 0 ]
    [ "${lines[0]}" = "tagGPS_TIME (24 bytes)" ]
}

@test "fields of an unknown record is a usage error" {
    run "$JSONPARSER" fields NoSuchRecord
    [ "$status" -eq 2 ]
}

@test "no command, an unknown command and an unknown option are usage errors on one line" {
    for arguments in "" "frobnicate" "decode VK_RECT --frobnicate" "decode" "records extra"; do
        run "$JSONPARSER" $arguments
        [ "$status" -eq 2 ]
        [ "${#lines[@]}" -eq 1 ]
        [[ "$output" == "jsonparser: "* ]]
    done
}

@test "--help and --version are good" {
    run "$JSONPARSER" --help
    [ "$status" -eq 0 ]
    [[ "$output" == *"decode"* ]]
    run "$JSONPARSER" --version
    [ "$status" -eq 0 ]
    [[ "$output" == "jsonparser "[0-9]* ]]
}

@test "every sample message decodes" {
    while read -r file record at; do
        run --separate-stderr "$JSONPARSER" decode "$record" --at "$at" "$MESSAGES/$file"
        [ "$status" -eq 0 ]
        [ "$stderr" = "" ]
    done < <(grep -v '^#' "$MESSAGES/index.txt")
}
