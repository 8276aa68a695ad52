# A dump to import: `load dump` after `load helper`.

# With a boolean and a count as gateways write them, what the data model lacks, and what is
# not the gateway's.
write_dump() {
  cat >"$BATS_TEST_TMPDIR/dump.csv" <<'EOF'
Parameter,Object,Writable,Value,Value type
InternetGatewayDevice.Layer2Bridging.BridgeNumberOfEntries,false,false,5,xsd:unsignedInt
InternetGatewayDevice.Layer2Bridging.Bridge.1,true,true,,
InternetGatewayDevice.Layer2Bridging.Bridge.1.BridgeName,false,true,imported,xsd:string
InternetGatewayDevice.Layer2Bridging.Bridge.1.BridgeEnable,false,true,TRUE,xsd:boolean
InternetGatewayDevice.X_Own.Colour,false,true,red,xsd:string
DeviceID.ID,false,false,1,xsd:string
EOF
}
