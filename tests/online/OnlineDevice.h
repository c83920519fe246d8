#pragma once

#include "apps/host/DriveProject.h"

#include <QtCore/QFile>
#include <QtCore/QTemporaryDir>

/// Devices whose registers a test can count.
class OnlineDevice {
public:
    /// A device of two axes. Unit 1 (global): A01 (UINT16, order 2) at 16, A02 (UINT32, order 1) at 17,
    /// A03 (STRING8) at 19, A04 (a command without storage) at 23. Units 2 and 3 (axes): B01 (INT16, limits
    /// -100 to 100) at 16, B02 (measured INT32) at 17, C01 (action: control, progress, result) at 19, E48
    /// (the state) at 22.
    static QByteArray description()
    {
        return R"({
  "format": "kr-device-description", "version": 1,
  "family": {"identifier": 65538, "name": "Online drive", "hasPhysicalAxes": true, "axes": [1, 2]},
  "languages": ["de"],
  "dataTypes": ["UINT8", "UINT16", "UINT32", "INT16", "INT32", "STRING8"],
  "profiles": {
    "setting": {"levels": {"read": 0, "write": 0}},
    "measured": {"levels": {"read": 0, "write": 0}, "memoryAllocation": 1, "noWrite": 1}},
  "parameters": [
    {"number": 1, "coordinates": ["A01"], "name": "Zahl", "global": true,
     "elements": [{"profile": "setting", "dataType": "UINT16", "default": 7, "onlineOrder": 2}]},
    {"number": 2, "coordinates": ["A02"], "name": "Lang", "global": true,
     "elements": [{"profile": "setting", "dataType": "UINT32", "default": 70000, "onlineOrder": 1}]},
    {"number": 3, "coordinates": ["A03"], "name": "Text", "global": true,
     "elements": [{"profile": "setting", "dataType": "STRING8", "kind": 5, "default": "abc",
                   "onlineOrder": 3}]},
    {"number": 4, "coordinates": ["A04"], "name": "Befehl", "global": true,
     "elements": [{"profile": "setting", "dataType": "UINT8", "memoryAllocation": 1,
                   "timeouts": {"read": 0, "write": 300}, "onlineOrder": 4}]},
    {"number": 5, "coordinates": ["B01"], "name": "Soll",
     "elements": [{"profile": "setting", "dataType": "INT16", "default": 5,
                   "limits": {"lower": -100, "upper": 100}, "onlineOrder": 5}]},
    {"number": 6, "coordinates": ["B02"], "name": "Ist",
     "elements": [{"profile": "measured", "dataType": "INT32", "default": -3, "onlineOrder": 5,
                   "cyclicOnlineUpdateRate": 250}]},
    {"number": 7, "coordinates": ["C01"], "name": "Suche", "type": "record", "elements": [
       {"number": 0, "name": "Steuerung", "profile": "setting", "dataType": "UINT8",
        "memoryAllocation": 1, "limits": {"lower": 0, "upper": 1}, "enableOffRequired": 1,
        "onlineOrder": 6},
       {"number": 1, "name": "Fortschritt", "profile": "measured", "dataType": "UINT8",
        "onlineOrder": 6},
       {"number": 2, "name": "Ergebnis", "profile": "measured", "dataType": "UINT8",
        "onlineOrder": 6}]},
    {"number": 8, "coordinates": ["E48"], "name": "Zustand",
     "elements": [{"profile": "measured", "dataType": "UINT8", "kind": 1,
                   "choices": {"0": "Nicht bereit", "1": "Gesperrt", "2": "Bereit", "4": "Ein"},
                   "onlineOrder": 7}]}
  ]
})";
    }

    explicit OnlineDevice(const QByteArray &description = OnlineDevice::description())
    {
        QFile file(fileName());
        if (file.open(QIODevice::WriteOnly))
            file.write(description);
    }

    QString fileName() const { return m_folder.filePath(QStringLiteral("device.json")); }
    std::unique_ptr<DriveProject> open() const
    {
        QString error;
        auto project = DriveProject::open(fileName(), error);
        if (!project)
            qWarning("%s", qPrintable(error));
        return project;
    }

private:
    QTemporaryDir m_folder;
};

inline ParameterCoordinate at(const char *text)
{
    return ParameterCoordinate(QString::fromLatin1(text));
}

inline ParameterAddress address(const char *text)
{
    return ParameterAddress(QString::fromLatin1(text), true);
}
