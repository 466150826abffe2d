# keywords: the vocabularies of the protocol.
bats_require_minimum_version 1.5.0

@test "keywords of one vocabulary" {
    run "$JSONPARSER" keywords VehicleSize
    [ "$status" -eq 0 ]
    [ "${lines[0]}" = "VehicleSize: size of a vehicle, one bit for each word" ]
    [ "${lines[1]}" = '     1  "Light-duty"' ]
    [ "${lines[5]}" = '    16  "Largesize"' ]
    [ "${#lines[@]}" -eq 6 ]
}

@test "keywords ignores the case of a vocabulary's name" {
    run "$JSONPARSER" keywords vehiclesize
    [ "$status" -eq 0 ]
}

@test "keywords without a name lists every vocabulary" {
    run "$JSONPARSER" keywords
    [ "$status" -eq 0 ]
    [[ "$output" == *'"Light-duty"'* ]]
}

@test "keywords --json is JSON" {
    run "$JSONPARSER" keywords --json
    [ "$status" -eq 0 ]
    python3 -c 'import json, sys
tables = {t["name"]: t for t in json.loads(sys.argv[1])}
assert tables["VehicleSize"]["rows"][2] == {"code": 4, "text": "Oversize"}' "$output"
}

@test "keywords of an unknown vocabulary is a usage error" {
    run "$JSONPARSER" keywords NoSuchTable
    [ "$status" -eq 2 ]
    [ "$output" = 'jsonparser: found "NoSuchTable", expected the name of a vocabulary (see: jsonparser keywords)' ]
}

@test "every vocabulary has a name of its own and rows" {
    "$JSONPARSER" keywords --json | python3 -c 'import json, sys
tables = json.load(sys.stdin)
assert len({t["name"].lower() for t in tables}) == len(tables) == 36
assert all(t["rows"] and t["meaning"] for t in tables)
assert sum(len(t["rows"]) for t in tables if t["name"] == "Resolution") == 120'
}

@test "a mistyped vocabulary is answered with the nearest one" {
    run "$JSONPARSER" keywords VehicelSize
    [ "$status" -eq 2 ]
    [ "$output" = 'jsonparser: found "VehicelSize", expected the name of a vocabulary; did you mean "VehicleSize"? (see: jsonparser keywords)' ]
}
