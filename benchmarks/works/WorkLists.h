#pragma once

#include "library/LB_QueueController.h"
#include "library/LB_TrackController.h"
#include "support/TransportFixture.h"

#include <QApplication>
#include <QLabel>
#include <QTableView>

namespace lyrabox::work {

/// The track list and its visible table, with a transport that plays nothing.
struct TrackTable {
    TrackTable()
    {
        queue.setAudio(transport.controller.get());
        queue.setErrorField(&errorField);
        tracks.setQueue(&queue);
        tracks.setSettings(&transport.settings);
        tracks.setTrackTableView(&table);
        tracks.setup();
        table.resize(900, 600);
        table.show();
        QApplication::processEvents();
    }

    /// Draws the visible part of the list.
    void paint()
    {
        table.doItemsLayout();
        table.viewport()->repaint();
    }

    test::TransportFixture transport;
    QLabel errorField;
    LB_QueueController queue;
    QTableView table;
    LB_TrackController tracks;
};

} // namespace lyrabox::work
