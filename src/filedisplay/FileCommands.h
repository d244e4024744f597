// The commands of the page "File Contents" beyond its menu (FileMenu.h): their words, keys and
// order in the notebook's menu.
#pragma once

class TfrmFileContents;

void AddFileCommands(TfrmFileContents &page);
