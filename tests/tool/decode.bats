# The tool's decode command.

@test "decodes the traffic event" {
    run "$JSONPARSER" decode tagDEV_EVENT_TRAFFIC_TRAFFICCAR_INFO --at /params/Events/0/TrafficCar \
        "$MESSAGES/traffic_event.json"
    [ "$status" -eq 0 ]
    [ "${lines[0]}" = "tagDEV_EVENT_TRAFFIC_TRAFFICCAR_INFO (2744 bytes)" ]
    [ "${lines[1]}" = '  szPlateNumber             "京A·D12345"' ]
}

@test "fields that the converter leaves alone are zero" {
    run "$JSONPARSER" decode tagDEV_SRC_INFO --at /params/Events/0/Data/Source "$MESSAGES/event_source.json"
    [ "$status" -eq 0 ]
    [[ "${lines[2]}" == *"dwMillisecond 250, dwUTC 0, dwReserved 0}" ]]
    run "$JSONPARSER" decode _NET_GPS_STATUS_INFO --hex <<<'{}'
    [ "$status" -eq 0 ]
    [ "$(grep -cE ' +[0-9]+ ( 00){16} ' <<<"$output")" -eq 39 ]
}
