// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QMap>
#include <QProcess>
#include <QRect>
#include <QStringList>

//! A program of another toolkit with one window, as the other end of a drag. Ends with this object.
class ProgramInGtk
{
public:
    //! Of what is dropped on it; late: only when told to.
    enum class Fetching { AtOnce, Late };

    //! \param place the window's, in global coordinates
    ProgramInGtk(const QRect &place, Fetching fetching);
    ~ProgramInGtk();

    //! Runs no events.
    QStringList lines() const;
    bool has(const QString &line) const { return lines().contains(line); }
    int count(const QString &line) const { return lines().count(line); }
    //! What it has received by format.
    QMap<QString, QByteArray> received() const;
    //! Tells a late one to fetch now.
    void fetch();

    QRect place() const { return m_place; }
    //! Whether the window came on screen at its place.
    bool isReady() const { return m_isReady; }

private:
    QRect m_place;
    mutable QProcess m_process;
    mutable QByteArray m_output;
    bool m_isReady = false;
};
