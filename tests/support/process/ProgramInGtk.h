// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QMap>
#include <QProcess>
#include <QRect>
#include <QStringList>

//! A program of another toolkit with one window, as the target of a drag. Ends with this object.
class ProgramInGtk
{
public:
    //! When it fetches dropped data; Late: by fetch().
    enum class Fetching { AtOnce, Late };

    //! \param place the window's geometry, in global coordinates
    ProgramInGtk(const QRect &place, Fetching fetching);
    ~ProgramInGtk();

    //! Its output so far. Runs no events.
    QStringList lines() const;
    bool has(const QString &line) const { return lines().contains(line); }
    int count(const QString &line) const { return lines().count(line); }
    //! The received data by format.
    QMap<QString, QByteArray> received() const;
    //! Makes a late one fetch now.
    void fetch();

    QRect place() const { return m_place; }
    //! Whether the window is on screen at its place.
    bool isReady() const { return m_isReady; }

private:
    QRect m_place;
    mutable QProcess m_process;
    mutable QByteArray m_output;
    bool m_isReady = false;
};
