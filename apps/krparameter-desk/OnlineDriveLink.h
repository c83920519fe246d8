#pragma once

#include "apps/krparameter-desk/DriveLink.h"
#include "apps/online/OnlineRules.h"

#include <memory>

class OnlineReport;
class OnlineSession;
class ParameterContainer;
struct DriveAddress;
struct OnlineOutcome;

/// A drive that speaks Modbus TCP. First its values are read, then what changes by itself is followed.
class OnlineDriveLink : public DriveLink {
    Q_OBJECT

public:
    /// **Owner** the caller; container and address outlive the link. The address is read by open().
    OnlineDriveLink(ParameterContainer &container, const DriveAddress &address);
    ~OnlineDriveLink() override;

    QString drive() const override;
    /// **Reports** what was read as information, each loss as a warning, titled with the container's
    /// domain; also later. Where reading is ended by close(), how far it came is one warning.
    void open() override;
    void close() override;
    void write(const ValuePlace &place) override;

private:
    void onStateChanged();
    void readAll();
    void follow();
    void onReported(const OnlineOutcome &outcome);
    void onProgress(qsizetype done, qsizetype total);
    void onTransferred(const OnlineReport &report);
    void tellRead(const OnlineReport &report) const;
    void tellCancelled(const OnlineReport &report) const;
    void warn(const QString &text) const;

    ParameterContainer &m_container;
    const DriveAddress &m_address;
    /// Null before the first opening; each has its own.
    std::unique_ptr<OnlineSession> m_session;
    bool m_isClosing = false;
    /// The values are being read for the first time.
    bool m_isReadingAll = false;
};
