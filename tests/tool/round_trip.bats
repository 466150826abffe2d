# Messages that are decoded, encoded and decoded again.
bats_require_minimum_version 1.5.0

# Decodes the record at a place of a sample and encodes it: leaves sent.json, record.json, written.json and again.json.
round_trip() {
    local file=$1 record=$2 at=$3
    cd "$BATS_TEST_TMPDIR"
    python3 -c 'import json, sys
node = json.load(open(sys.argv[1]))
for step in sys.argv[2].split("/")[1:]:
    node = node[int(step)] if isinstance(node, list) else node[step]
json.dump(node, open("sent.json", "w"))' "$MESSAGES/$file" "$at"
    "$JSONPARSER" decode "$record" --json sent.json >record.json
    "$JSONPARSER" encode "$record" record.json >written.json
    "$JSONPARSER" decode "$record" --json written.json >again.json
}

compare() {
    python3 -c 'import json
sent, written = json.load(open("sent.json")), json.load(open("written.json"))
record, again = json.load(open("record.json")), json.load(open("again.json"))
'"$1"
}

@test "a weekly schedule comes back as it was sent" {
    for place in "tagCFG_TIME_SCHEDULE /params/config/Recording/0/TimeSection" \
        "tagNET_CFG_TIME_SCHEDULE /params/config/AlarmInput/0/Reaction/TimeSection"; do
        round_trip schedule.json $place
        compare 'assert record == again
assert len(written) >= 7 and all(len(row) == 6 for row in written)
for row, back in zip(sent, written):
    assert back[:len(row)] == row[:6], (row, back)'
    done
}

@test "mobile data come back as they were sent, without the index and what no converter reads" {
    round_trip mobile_data.json tagNET_NETAPP_WIRELESS /params/config/MobileData/0
    compare 'assert set(sent) - set(written) == {"Index", "SignalStrength"}, set(sent) - set(written)
assert all(written[name] == sent[name] for name in written)
record["nIndex"] = 0
assert record == again'
}

@test "serial ports come back as they were sent" {
    for place in "tagCFG_COMM_PROP /params/config/SerialPorts/0/Attributes" \
        "VK_COMM_PROP /params/config/SerialPorts/1/Attributes"; do
        round_trip serial_port.json $place
        compare 'assert written == sent and record == again'
    done
}

@test "a person of the first generation with 8 pictures loses exactly what its writer does not write" {
    round_trip person_query.json tagFACERECOGNITION_PERSON_INFO /params/Persons/0
    compare 'lost = set(sent) - set(written)
assert lost == {"Age", "Attractive", "Beard", "CustomPersonInfo", "Emotion", "Eye", "FeatureState", "GlassesType",
                "HomeAddress", "Mask", "Mouth", "Race"}, lost
changed = {name for name in written if written[name] != sent[name]}
assert changed == {"Birthday", "Image"}, changed
assert written["Birthday"] == "1990-5-3"
assert len(written["Image"]) == 8
for before, after in zip(sent["Image"], written["Image"]):
    before = {name: int(value) for name, value in before.items() if name != "FilePath"}
    assert after == before and not isinstance(after["IsDetected"], bool)
differs = {name for name in record if record[name] != again[name]}
assert differs == {"stuFacePicInfo", "byAge", "emEmotion"}, differs'
}

@test "a person of the second generation with 8 pictures loses exactly what its writer does not write" {
    round_trip person_query.json tagFACERECOGNITION_PERSON_INFOEX /params/Persons/0
    compare 'lost = set(sent) - set(written)
assert lost == {"Age", "Emotion", "FeatureValue"}, lost
changed = {name for name in written if written[name] != sent[name]}
assert changed == {"Birthday", "CustomPersonInfo", "Image"}, changed
assert written["CustomPersonInfo"] == [{"PersonInfo": text} for text in sent["CustomPersonInfo"]]
differs = {name for name in record if record[name] != again[name]}
assert differs == {"stuFacePicInfo", "byAge", "emEmotion", "stuCustomPersonInfo"}, differs'
}

@test "every record that is read and written takes its own form back" {
    grep -v '^#' "$MESSAGES/index.txt" | while read -r file record at; do
        if "$JSONPARSER" records | grep -q "^$record .*decode, encode"; then
            "$JSONPARSER" decode "$record" --json --at "$at" "$MESSAGES/$file" | "$JSONPARSER" encode "$record" >/dev/null
        fi
    done
}
