// The commands of a map page beyond its stated controls, in the notebook's menu and on keys.
#pragma once

class TfrmMaps;

/// Gives `page` its commands.
void AddMapCommands(TfrmMaps &page);
