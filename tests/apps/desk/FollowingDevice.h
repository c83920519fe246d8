#pragma once

#include "tests/apps/desk/DeskDevice.h"

/// A device whose values follow one another. A write of K01 sets K02 to its double, is the upper limit
/// of K03, and hides K04 and K05 above 100; K06 corrects itself to 50 and says so. K07 is for level 6,
/// K08 is shown as a tenth, K09 is a choice; K10 is read from level 3 on.
class FollowingDevice : public DeskDevice {
public:
    FollowingDevice()
        : DeskDevice(description())
    {
    }

    static QByteArray description()
    {
        return R"json({
  "format": "kr-device-description", "version": 1,
  "family": {"identifier": 79, "name": "Following drive", "hasPhysicalAxes": true, "axes": [1]},
  "languages": ["de", "en"],
  "dataTypes": ["UINT8", "UINT16"],
  "functions": {
    "postWrite": {
      "1": "writeValueNative(0, 'K02', 0, 2 * readValueNative(0, 'K01'))",
      "2": ["if parameter.value > 50 then",
            "  writeValueNative(0, 'K06', 0, 50)",
            "  addWarningMessage('K06 ist höchstens 50')",
            "end"]},
    "limit": {"1": "return 0, readValueNative(0, 'K01')"},
    "hiding": {"1": "return readValueNative(0, 'K01') > 100"}
  },
  "profiles": {"number": {"dataType": "UINT16", "kind": 0, "levels": {"read": 0, "write": 2}}},
  "parameters": [
    {"number": 1, "coordinates": ["K01"], "name": "Quelle", "global": true,
     "elements": [{"profile": "number", "default": 10,
                   "dependencies": {"postWrite": 1, "limit": 1, "hiding": 1}}]},
    {"number": 2, "coordinates": ["K02"], "name": "Folge", "global": true,
     "elements": [{"profile": "number", "default": 7, "functions": {"postWrite": 1}}]},
    {"number": 3, "coordinates": ["K03"], "name": "Begrenzt", "global": true,
     "elements": [{"profile": "number", "default": 5, "functions": {"limit": 1}}]},
    {"number": 4, "coordinates": ["K04"], "name": "Manchmal", "global": true,
     "elements": [{"profile": "number", "default": 4, "functions": {"hiding": 1}}]},
    {"number": 5, "coordinates": ["K05"], "name": "Manchmal", "global": true,
     "elements": [{"profile": "number", "default": 5, "functions": {"hiding": 1}}]},
    {"number": 6, "coordinates": ["K06"], "name": "Korrigiert", "global": true,
     "elements": [{"profile": "number", "default": 6, "dependencies": {"postWrite": 2},
                   "functions": {"postWrite": 2}}]},
    {"number": 7, "coordinates": ["K07"], "name": "Verdeckt", "global": true,
     "elements": [{"profile": "number", "default": 777, "levels": {"read": 0, "write": 6}}]},
    {"number": 8, "coordinates": ["K08"], "name": "Zehntel", "global": true,
     "elements": [{"profile": "number", "default": 300, "scaling": {"factor": 0.1},
                   "decimals": {"behind": 1, "significant": 6}}]},
    {"number": 9, "coordinates": ["K09"], "name": "Auswahl", "global": true,
     "elements": [{"dataType": "UINT8", "kind": 1, "default": 0, "choices": {"0": "Aus", "1": "Ein"},
                   "levels": {"read": 0, "write": 2}}]},
    {"number": 10, "coordinates": ["K10"], "name": "Geheim", "global": true,
     "elements": [{"profile": "number", "default": 1234, "levels": {"read": 3, "write": 3}}]}
  ]
})json";
    }
};
