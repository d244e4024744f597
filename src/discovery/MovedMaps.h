// From a known image to another one of the same family: where the known maps lie there, how sure
// that is, and why. Maps may have moved and their values may have changed; their axes are alike.
// Nothing is guessed: what resembles too little is not found, what could lie elsewhere is unsure.
#pragma once

#include "changes/MapChanges.h"
#include "discovery/MapPlace.h"

#include <array>
#include <vector>

/// An image and where its maps lie.
struct TKnownImage {
    TRomBytes bytes;
    /// In the order of allMaps; none for a map without a place.
    std::array<std::optional<std::uint32_t>, 6> maps;
    std::optional<std::uint32_t> revLimiter;
};

/// What an image with its maps gives, as it is placed now. Its bytes live as long as the image.
TKnownImage KnownImage(const TMappedImage &image);

enum class TSureness { Sure, Unsure, NotFound };

/// What a proposal rests on, and what speaks against it.
enum class TMovedFact {
    NotPlaced,    ///< the known image has no place for the map
    NoForm,       ///< what lies at its place there has no form to look for
    NoneOfForm,   ///< no place here has its form: RPM points, load points
    NoneAlike,    ///< places with its form, none like it: how many
    TooManyAlike, ///< so many are like it that none can be told
    GivenAway,    ///< another map has the place that is most like it: its offset
    Steps,        ///< axis steps: equal ones, all
    Headers,      ///< first bytes of the axes: equal ones, all
    Values,       ///< cells: equal ones, all
    Shifted,      ///< the values are all higher or lower by about the same
    Scaled,       ///< and by about the same share
    Around,       ///< bytes in front and behind that are the same: how many
    Pointers,     ///< pointers to it stand as in the known image
    Together,     ///< other maps moved by the same distance: how many, the distance
    Alone,        ///< no other map moved by its distance: the distance
    OtherAxes,    ///< the axes differ much
    OtherValues,  ///< the values differ much
    LittleToTell, ///< too little of it, or of what is around a linear map, is the same
    Rival,        ///< another place here is as good, or nearly: its offset
    KnownRival,   ///< another place of the known image is as like: its offset
    // Of the rev limiter:
    ByteAround,    ///< bytes around it that are the same: how many, of how many
    ByteInFilling, ///< the bytes around it are so alike that they tell nothing
    ByteNotAlone,  ///< they stand in other places too
    ByteNotFound   ///< they stand nowhere
};

struct TMovedReason {
    TMovedFact fact;
    std::int64_t first = 0;
    std::int64_t second = 0;
    friend bool operator==(const TMovedReason &, const TMovedReason &) = default;
};

struct TMovedMap {
    std::optional<TMapPlace> known; ///< in the known image
    std::optional<TMapPlace> place; ///< none exactly when it was not found
    TSureness sureness = TSureness::NotFound;
    std::vector<TMovedReason> reasons;
};

struct TMovedByte {
    std::optional<std::uint32_t> offset; ///< Sure when there is one
    std::vector<TMovedReason> reasons;
};

struct TMovedMaps {
    std::array<TMovedMap, 6> maps; ///< in the order of allMaps; no two share a byte
    TMovedByte revLimiter;
};

/// Linear in the size of the images, whatever their bytes; never throws for them.
TMovedMaps FindMovedMaps(const TKnownImage &known, TRomBytes image);
