// The scripts of this folder, each on the layout that its first line names.
#pragma once

#include "vex/play.h"

#include <string>
#include <vector>

// Without the endings, in the order of the alphabet. Those that name monitors only where there are
// several, or no display.
std::vector<std::string> PlayNames();

// Plays it, and holds the pictures that it takes against those that are kept.
void ExpectPlays(const std::string& name, const Kesto::CHostHands& hands = {});

// A script on a layout of this folder.
Host::PlayOutcome PlayOn(const std::string& layout, Host::Script script,
                         const Kesto::CHostHands& hands = {}, const std::string& messages = {});
