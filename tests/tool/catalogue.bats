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
    records=$("$JSONPARSER" records | cut -d' ' -f1)
    for record in $records; do
        "$JSONPARSER" fields "$record" >/dev/null
        "$JSONPARSER" fields "$record" --json
    done >"$BATS_TEST_TMPDIR/fields"
    read_documents=$(python3 -c 'import json, sys
text, decoder, read = sys.stdin.read(), json.JSONDecoder(), 0
while text:
    text, read = text[decoder.raw_decode(text)[1]:].lstrip(), read + 1
print(read)' <"$BATS_TEST_TMPDIR/fields")
    [ "$read_documents" -eq "$(wc -w <<<"$records")" ]
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

@test "a mistyped command, option or record name is answered with the nearest one" {
    nearest() {
        run "$JSONPARSER" "${@:3}"
        [ "$status" -eq 2 ]
        [[ "$output" == "jsonparser: found \"$1\", expected "*"; did you mean \"$2\"? (see: jsonparser"* ]]
    }
    nearest decod decode decod VK_RECT
    nearest Records records Records
    nearest --jsn --json decode VK_RECT --jsn
    nearest --colour --color records --colour always
    nearest --colr=never --color --colr=never records
    nearest --versoin --version --versoin
    nearest VK_RECTS VK_RECT fields VK_RECTS
    nearest vk_rcet VK_RECT decode vk_rcet
    nearest trafficcra TRAFFICCAR fields trafficcra
    nearest tagNET_GSP_INFO tagNET_GPS_INFO encode tagNET_GSP_INFO
}

@test "what is near to nothing is answered without a proposal" {
    for arguments in frobnicate -V "decode VK_RECT -j" "decode VK_RECT --frobnicate" "fields Zzzzzzzz" "keywords Zzzzzzzz"; do
        run "$JSONPARSER" $arguments
        [ "$status" -eq 2 ]
        [[ "$output" != *"did you mean"* ]]
    done
}

@test "usage errors say what was found and what was expected" {
    run "$JSONPARSER" frobnicate
    [ "$output" = 'jsonparser: found "frobnicate", expected a command (see: jsonparser --help)' ]
    run "$JSONPARSER" records extra
    [ "$output" = 'jsonparser: found "extra", expected nothing more (see: jsonparser records --help)' ]
    run "$JSONPARSER" decode VK_RECT --frobnicate
    [ "$output" = 'jsonparser: found "--frobnicate", expected an option of jsonparser decode (see: jsonparser decode --help)' ]
    run "$JSONPARSER" decode VK_RECT --json=3
    [ "$status" -eq 2 ]
}

@test "records and keywords are coloured where that is wanted" {
    run "$JSONPARSER" records --color always
    [[ "${lines[0]}" == $'\e[36mVK_RECT                               \e[0m     32 bytes  decode, encode  '* ]]
    [ "$(sed 's/\x1b\[[0-9;]*m//g' <<<"$output")" = "$("$JSONPARSER" records)" ]
    run "$JSONPARSER" keywords VehicleSize --color always
    [[ "${lines[0]}" == $'\e[1mVehicleSize\e[0m: size of '* ]]
}

@test "JSON is never coloured" {
    for arguments in "records --json" "fields VK_RECT --json" "keywords VehicleSize --json" "error 0 --json"; do
        run "$JSONPARSER" $arguments --color always
        [ "$status" -eq 0 ]
        [[ "$output" != *$'\e'* ]]
    done
}

@test "fields --json is the whole layout" {
    "$JSONPARSER" fields VK_POINT --json | python3 -c 'import json, sys
assert json.load(sys.stdin) == {"record": "VK_POINT", "size": 4, "fields": [
    {"name": "nx", "offset": 0, "size": 2, "type": "int16", "meaning": "horizontal coordinate"},
    {"name": "ny", "offset": 2, "size": 2, "type": "int16", "meaning": "vertical coordinate"}]}'
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

@test "an option before its command is told to stand behind it" {
    run "$JSONPARSER" --json explain VK_RECT
    [ "$status" -eq 2 ]
    [ "$output" = 'jsonparser: found "--json" before explain, expected it behind (see: jsonparser explain --help)' ]
    run "$JSONPARSER" --at=/a decode VK_RECT
    [ "$status" -eq 2 ]
    [ "$output" = 'jsonparser: found "--at=/a" before decode, expected it behind (see: jsonparser decode --help)' ]
}

@test "the limits of reading are options of explain and encode, too" {
    run "$JSONPARSER" explain VK_RECT --max-depth 1 <<<'[[1]]'
    [ "$status" -eq 1 ]
    [[ "$output" == *"<stdin>:1:2"* ]]
    run "$JSONPARSER" explain VK_RECT --max-size 3 <<<'[1, 2, 3, 4]'
    [ "$status" -eq 1 ]
    run "$JSONPARSER" encode VK_POINT --max-depth 1 <<<'{"nx": [1]}'
    [ "$status" -eq 1 ]
    [[ "$output" == *"<stdin>:1:8"* ]]
    run "$JSONPARSER" encode VK_POINT --lines --jobs 1 <<<'{"nx": 1, "ny": 2}'
    [ "$status" -eq 0 ]
    [ "$output" = "[1,2]" ]
}

@test "-h is --help" {
    run "$JSONPARSER" -h
    [ "$status" -eq 0 ]
    short=$output
    run "$JSONPARSER" --help
    [ "$output" = "$short" ]
}
