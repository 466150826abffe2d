# The tool's decode command.

@test "decodes the traffic event" {
    run "$JSONPARSER" decode tagDEV_EVENT_TRAFFIC_TRAFFICCAR_INFO --at /params/Events/0/TrafficCar \
        "$MESSAGES/traffic_event.json"
    [ "$status" -eq 0 ]
    [ "${lines[0]}" = "tagDEV_EVENT_TRAFFIC_TRAFFICCAR_INFO (2744 bytes)" ]
    [ "${lines[1]}" = '  szPlateNumber             "京A·D12345"' ]
}
