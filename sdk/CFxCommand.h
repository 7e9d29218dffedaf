// SPDX-License-Identifier: MIT
#pragma once

#include <OdEdCommand.h>

class CFxCommandContext;

//! A command of the application. GUI thread.
class FXSDK_API CFxCommand : public OdEdCommand
{
public:
    //! What Execute() returns when it has done its job.
    static constexpr int normalCompletion = 5100;
    //! What Execute() returns when the person has ended it.
    static constexpr int cancelled = 5101;
    //! What Execute() returns when it could not do its job; it has told the person why.
    static constexpr int failed = 5102;

    ~CFxCommand() override;

    //! "FX_COMMANDS" unless overridden.
    OdString groupName() const override; // [gui-thread]
    //! Calls Execute(). \param context must be a CFxCommandContext
    void execute(OdEdCommandContext *context) override; // [gui-thread]
    void undefine() override;                           // [gui-thread]
    std::uint32_t flags() const override;               // [gui-thread]

    //! Does the command's work.
    //! \return one of the results above, or the command's own
    virtual int Execute(CFxCommandContext *context) = 0; // [gui-thread]
    //! Opens the help for GetHelpId().
    virtual void Help(); // [gui-thread]
    //! The help topic of the command; 0, the host's front page, unless overridden.
    virtual int GetHelpId() const; // [gui-thread]

    //! Sets the given bits in addition to those that are set.
    void AddFlags(std::uint32_t flags); // [gui-thread]

private:
    std::uint32_t m_flags = 0;
};
