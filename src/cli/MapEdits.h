// The edits of an image's maps that a command makes, each map at most once.
#pragma once

#include "cli/ImageChange.h"

#include <memory>
#include <string>
#include <vector>

/// Lives while the image is in force.
class TMapEdits {
public:
    /// @param image  its name, for messages
    TMapEdits(TWorkspace &maps, TNotes &notes, std::string image)
        : maps_(maps), notes_(notes), image_(std::move(image)) {}

    /// The edit of a map, begun when it is first asked for. Throws as NeedMap does.
    TMapEdit &Of(TMapId map);

    /// Writes what was entered into the image.
    void Commit();

private:
    struct TOneMap {
        TMapId map;
        std::unique_ptr<TMapEdit> edit;
    };
    TWorkspace &maps_;
    TNotes &notes_;
    std::string image_;
    std::vector<TOneMap> edits_;
};
