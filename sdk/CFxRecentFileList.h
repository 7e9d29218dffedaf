// SPDX-License-Identifier: MIT
#pragma once

#include <CFxString.h>
#include <FxSdkApi.h>

#include <vector>

//! The drawings that were opened last. GUI thread.
class FXSDK_API CFxRecentFileList
{
public:
    CFxRecentFileList() = default;
    virtual ~CFxRecentFileList();

    //! Fills paths with the recent documents, most recent first, none twice. A module looks at each of them,
    //! so a host leaves out, for the time being, those on a disk or server that does not answer.
    //! \param paths cleared first; full paths exactly as they were opened
    virtual void GetPaths(std::vector<CFxString> &paths) const = 0; // [gui-thread]

    CFxRecentFileList(const CFxRecentFileList &) = delete;
    CFxRecentFileList &operator=(const CFxRecentFileList &) = delete;
};
