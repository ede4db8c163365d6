// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "client/viewer/Part.h"

#include <string>

namespace lectern::viewer {

// Shows a window with the properties of the document and of its file.
class PropertiesDialog : public Part {
public:
    explicit PropertiesDialog(Shell& shell);

private:
    void show(LecternDocument* document) override;
    void ask();
    void present(LecternProperties* properties);

    GSimpleAction* mProperties;
};

} // namespace lectern::viewer
