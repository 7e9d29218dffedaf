// SPDX-License-Identifier: MIT
#pragma once

#include <OdEdCommand.h>

class CFxCommandContext;

//! A command of the application. GUI thread.
class FXSDK_API CFxCommand : public OdEdCommand
{
public:
    //! Result of Execute(): the command has completed.
    static constexpr int normalCompletion = 5100;
    //! Result of Execute(): the user has cancelled the command.
    static constexpr int cancelled = 5101;
    //! Result of Execute(): the command could not complete; it has shown the reason to the user.
    static constexpr int failed = 5102;

    ~CFxCommand() override;

    //! "FX_COMMANDS" unless overridden.
    OdString groupName() const override; // [gui-thread]
    //! Calls Execute(). The host, which defines this, keeps the result and passes it to
    //! OdEditorReactor::commandEnded().
    //! \param context must be a CFxCommandContext
    void execute(OdEdCommandContext *context) override; // [gui-thread]
    void undefine() override;                           // [gui-thread]
    std::uint32_t flags() const override;               // [gui-thread]

    //! Performs the command. If it throws, the result is failed.
    //! \param context not null
    //! \return one of the results above, or a value of the command's own
    virtual int Execute(CFxCommandContext *context) = 0; // [gui-thread]
    //! Opens the help page of GetHelpId().
    virtual void Help(); // [gui-thread]
    //! The command's help topic; 0, the host's front page, unless overridden.
    virtual int GetHelpId() const; // [gui-thread]

    //! Sets the given bits in addition to those that are already set.
    void AddFlags(std::uint32_t flags); // [gui-thread]

private:
    std::uint32_t m_flags = 0;
};
