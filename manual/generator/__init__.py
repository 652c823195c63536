"""What the manual's pages say, from the header, the rows and the documents."""
