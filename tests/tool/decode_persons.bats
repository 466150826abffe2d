# The tool's decode command, on persons: the texts that the caller offers buffers for are shown.

decode() { "$JSONPARSER" decode "$@"; }

@test "shows the caller's texts of a person" {
    run decode tagFACERECOGNITION_PERSON_INFO --at /params/Persons/0 "$MESSAGES/person_query.json"
    [ "$status" -eq 0 ]
    [ "${lines[0]}" = "tagFACERECOGNITION_PERSON_INFO (2248 bytes)" ]
    [[ "$output" == *$'\n  szPersonName       "访客"\n'* ]]
    [[ "$output" == *$'\n  wFacePicNum        8\n'* ]]
    [[ "$output" == *$'\n  pszComment         "来访登记，陪同进入"\n'* ]]
    [[ "$output" == *$'\n  pszGroupID         "17"\n'* ]]
    [[ "$output" == *$'\n  pszGroupName       "一号楼访客"\n'* ]]
    [[ "$output" == *$'\n  pszFeatureValue    "q83vASNFZ4k="\n'* ]]
    [[ "$output" == *$'\n  byCommentLen       255\n'* ]]
}

@test "shows a text of the caller's to 254 bytes" {
    text=$(printf 'c%.0s' {1..300})
    run decode tagFACERECOGNITION_PERSON_INFO <<<"{\"Comment\": \"$text\"}"
    [ "$status" -eq 0 ]
    [[ "$output" == *"pszComment         \"${text:0:254}\""* ]]
    [[ "$output" == *$'\n  pszGroupID         ""\n'* ]]
}

@test "shows the caller's texts of the person in a candidate" {
    run decode tagCANDIDATE_INFO --at /params/Events/0/Candidates/0 "$MESSAGES/face_recognition.json"
    [ "$status" -eq 0 ]
    [[ "$output" == *'pszComment "来访登记，陪同进入"'* ]]
    [[ "$output" == *'pszGroupName "一号楼访客"'* ]]
}

@test "shows a person of the second generation" {
    run decode tagFACERECOGNITION_PERSON_INFOEX --json --at /params/Persons/0 "$MESSAGES/person_query.json"
    [ "$status" -eq 0 ]
    [[ "$output" == *'"szCustomType": "访客"'* ]]
    [[ "$output" == *'"emRace": 2'* ]]
}
