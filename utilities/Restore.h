#pragma once
// Restore: the user's six logs replaced by the copies in the backup file "\My Documents\<user>.kov".
//
// The file is mounted read-only and never changed. Before it deletes anything, restore opens all
// six copies and reads every record of each; a file with a copy missing or a record that cannot be
// read is refused with nothing changed. Only then is each log deleted, made anew and filled from its
// copy, the A pairs before the B pairs, all six in one transaction of the object store: a failure
// or a kill at any moment leaves the logs either exactly as they were or wholly restored.

#include <QString>

class UtilityReport;

class Restore {
public:
    // The yes/no question asked before a restore, for the user's display name.
    static QString question(const QString& user);
    // Restores the logs of user (the empty name: Default), from the mount of the file on; the
    // question has been answered. True when the six logs were restored.
    static bool run(const QString& user, UtilityReport& report);
};
