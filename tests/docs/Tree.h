// What of the project the documents may name: files, scripts with their options, presets, targets,
// switches of the build, names in the sources. Read from the project's folder.
#pragma once

#include <filesystem>
#include <set>
#include <string>
#include <vector>

class TTree {
public:
    explicit TTree(std::filesystem::path top);

    const std::filesystem::path &Top() const { return top_; }
    /// True when `name`, relative to the top, to src/ or to tests/, is a file or folder; endings .h
    /// and .cpp may be missing, and "*" stands for any characters in the last part. A name without
    /// a folder may lie anywhere.
    bool HasFile(const std::string &name) const;
    /// True when something of that path is installed, below the prefix or with it as "usr/".
    bool Installs(const std::string &path) const;
    bool HasPreset(const std::string &kind, const std::string &name) const;
    bool HasTarget(const std::string &name) const { return targets_.contains(name); }
    /// True when the word, taken whole, stands in the file.
    bool Stands(const std::string &word, const std::string &file) const;
    /// True when the word, taken whole, stands in any source, script or build file of the project.
    bool StandsAnywhere(const std::string &word) const;

private:
    void ReadInstalled();
    void ReadTargets(const std::string &cmakeFile);

    std::filesystem::path top_;
    std::set<std::string> files_; ///< and folders, relative to the top, without build/ and .git/
    std::set<std::string> targets_;
    std::vector<std::string> installed_; ///< packaging/files.txt
    std::string sources_;                ///< the text of them all
};

/// The project itself.
const TTree &Project();

std::string TextOf(const std::filesystem::path &file);
