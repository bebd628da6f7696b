# Los ejemplos emiten comprobantes: solo en una impresora virtual, si no se les pide otra cosa.
package Kestra::Virtual;

use strict;
use warnings;
use Cwd ();
use Exporter 'import';

our @EXPORT_OK = qw(exigir_impresora_virtual impresora_virtual);

# ¿Es virtual la impresora de ese archivo? Una dirección de esta máquina, una tubería o una pseudoterminal.
sub impresora_virtual {
    my $archivo = shift // 'Fiscal.ini';
    open my $ini, '<', $archivo or return 0;
    # La clave puede estar más de una vez, también en secciones ajenas: no se elige cuál vale.
    my @dispositivos = map { /^[ \t]*ImpresoraDispositivo[ \t]*=[ \t]*(.*?)\s*$/i ? $1 : () } <$ini>;
    return @dispositivos && !grep { !dispositivo_virtual($_) } @dispositivos;
}

sub dispositivo_virtual {
    my ($dispositivo) = @_;
    return 1 if $dispositivo =~ /^tcp:(127\.\d+\.\d+\.\d+|localhost|\[::1\]):\d+\z/i;
    return 1 if $dispositivo =~ /^\\\\\.\\pipe\\/;
    return $dispositivo ne '' && (Cwd::realpath($dispositivo) // '') =~ m{^/dev/pts/\d+\z};
}

# Termina el programa con 2, salvo con una impresora virtual o con --impresora-real entre los argumentos.
sub exigir_impresora_virtual {
    # La variable KESTRA_DISPOSITIVO se antepone a Fiscal.ini: con ella no.
    return if (!$ENV{KESTRA_DISPOSITIVO} && impresora_virtual()) || grep { $_ eq '--impresora-real' } @_;
    print STDERR "La impresora de Fiscal.ini no es virtual: para usarla igual, --impresora-real.\n";
    exit 2;
}

1;
