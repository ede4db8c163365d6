// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "client/viewer/Part.h"

namespace lectern::viewer {

// Light letters on a dark page: always, or while the desktop has its dark style. The
// choice is remembered for all windows.
class NightReading : public Part {
public:
    explicit NightReading(Shell& shell);
    ~NightReading() override;

protected:
    void show(LecternDocument* /*document*/) override {}

private:
    void toggle();
    void apply();

    GLibHolder<GSettings> mSettings;
    GSimpleAction* mNight;
};

} // namespace lectern::viewer
