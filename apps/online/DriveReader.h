#pragma once

#include "apps/online/BlockPlan.h"

#include <QtCore/QByteArray>
#include <QtCore/QHash>
#include <QtCore/QList>
#include <QtCore/QObject>

#include <vector>

class RegisterMap;
class RequestExchange;
struct OnlineAnswer;

/// Reads values in blocks; where the drive refuses a block, each of its values alone.
class DriveReader : public QObject {
    Q_OBJECT

public:
    /// **Owner** the caller; the exchange outlives the reader.
    explicit DriveReader(RequestExchange &exchange);

    /// **Owner** the caller; the map outlives the run.
    void start(const RegisterMap &map);
    /// **Emits** nothing for what was under way.
    void stop();

    /// Collected until send(). A value that is on its way already is not asked for twice.
    void want(qsizetype value);
    void want(const QList<qsizetype> &values);
    bool isAwaited(qsizetype value) const { return m_isAwaited.at(std::size_t(value)); }
    bool hasUnsent() const { return !m_wanted.isEmpty(); }
    void send();

Q_SIGNALS:
    /// `bytes` are those of all registers of the block, `request` is the number of the exchange's
    /// request.
    void blockRead(const BlockPlan::Block &block, const QByteArray &bytes, quint32 request);
    void blockFailed(const BlockPlan::Block &block, const OnlineAnswer &answer);

private:
    void request(const BlockPlan::Block &block);
    void onFinished(quint32 request, const OnlineAnswer &answer);

    RequestExchange &m_exchange;
    /// Null while stopped.
    const RegisterMap *m_map = nullptr;
    QList<qsizetype> m_wanted;
    /// By position: wanted or on its way.
    std::vector<bool> m_isAwaited;
    /// By request.
    QHash<quint32, BlockPlan::Block> m_blocks;
};
