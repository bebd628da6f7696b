// Kestra para Delphi y Free Pascal: las llamadas con string, y una excepción cuando una falla. Va encima de Kestra.pas.
unit KestraImpresora;

{$IFDEF FPC}{$MODE DELPHI}{$ENDIF}

interface

uses
  SysUtils;

type
  // Una llamada que falló. Message es la oración para el operador: qué pasó, si se hizo y qué hacer ahora.
  EErrorFiscal = class(Exception)
  public
    Llamada: string;     // la función que falló, como 'EP_ImprimirItem'
    Desenlace: Integer;  // un número de KESTRA_DESENLACE: si se hizo o no
    Causa: Integer;      // un número de KESTRA_CAUSA: por qué
    constructor Create(const ALlamada: string);
  end;

  // A quién se le hace el comprobante. Con ConsumidorFinal se empieza.
  TCliente = record
    Nombre, DocumentoTipo, DocumentoNumero, ResponsabilidadIva: string;
    Domicilio1, Domicilio2, Domicilio3, Linea4, Linea5: string;
  end;

  // Un renglón del informe de estados.
  TFila = record
    Grupo: Integer;  // 0 de la impresora, 1 fiscal
    Numero: Integer;
    Clase: Integer;  // 0 información, 1 error
    Encendida: Boolean;
    Texto, Ayuda: string;
  end;
  TFilas = array of TFila;

  // Quien contesta en lugar de los cuadros de la biblioteca. Lo que levante vale como No o Cerrar.
  TOperador = class
  public
    // Estilo: 0 Aceptar, 4 y 36 Sí/No. Da 1 Aceptar, 6 Sí, 7 No.
    function Mensaje(const Texto, Titulo: string; Estilo: Integer): Integer; virtual; abstract;
    // Da si mandar otra vez.
    function InformeEstados(const Impresora, Fiscal: string; const Filas: TFilas): Boolean; virtual; abstract;
    procedure MemoriaLlena; virtual; abstract;
  end;

  // La impresora, de EP_Init (Create) a EP_Kill (Free): una por programa, y un hilo por vez. Lo que pasa del largo que la
  // función lee se corta. Los métodos se llaman como las funciones de Kestra.pas, que dice qué hace cada una. Los textos
  // son string: en Free Pascal y Lazarus, UTF-8; en Delphi, los suyos (hasta Delphi 2007, windows-1252).
  TImpresora = class
  private
    FTextos: Integer;  // cómo se pasaban antes
  public
    constructor Create;
    destructor Destroy; override;

    // Contesta en lugar de los cuadros; nil vuelve a los cuadros. Tiene que vivir mientras tanto, y lo libera el programa.
    procedure DefinirOperador(Operador: TOperador);

    procedure AbrirComprobanteFiscal(const Tipo, Letra: string; const Cliente: TCliente; Copias: Integer = 1);
    procedure ImprimirItem(const Descripcion: string; Cantidad, Precio, Iva: Double; const Extra1: string = '';
      const Extra2: string = ''; const Extra3: string = ''; ImpuestosInternos: Double = 0);
    procedure AnularItem(const Descripcion: string; Cantidad, Precio, Iva: Double; const Extra1: string = '';
      const Extra2: string = ''; const Extra3: string = ''; ImpuestosInternos: Double = 0);
    procedure ImprimirTextoFiscal(const Texto: string);
    function CerrarComprobanteFiscal(const Tipo, Letra: string): string;  // da su número
    procedure Cancelar;

    procedure DescuentoGeneral(const Descripcion: string; Monto: Double);
    procedure RecargoGeneral(const Descripcion: string; Monto: Double);
    procedure EspecificarPercepcionGlobal(const Descripcion: string; Monto, Iva: Double; const Calificador: string);
    procedure ImprimirPago(const Descripcion: string; Monto: Double);
    procedure AjusteRedondeo(Total: Double);

    procedure AbrirComprobanteNoFiscalHomologado(const Tipo, Marca1, Linea1, Linea2, DocumentoTipo, DocumentoNumero, Marca2,
      Domicilio: string; const Linea4: string = ''; const Linea5: string = ''; const Linea6: string = '';
      const Linea7: string = ''; Cantidad: Integer = 1);
    procedure CerrarComprobanteNoFiscalHomologado(const Tipo, Marca: string);
    procedure AbrirComprobanteNoFiscal;
    procedure ImprimirTextoNoFiscal(const Texto: string);
    procedure CerrarComprobanteNoFiscal;

    // Las fechas son AAMMDD y las horas, HHMMSS.
    procedure ReporteX;
    procedure ReporteZ;
    procedure ReporteZporNumeros(Primero, Ultimo: Integer);
    procedure ReporteZporFechas(const Desde, Hasta: string);
    procedure AbrirCajonDeDinero(Cajon: Integer = 1);
    procedure CambiarFechaHora(const Fecha, Hora: string);
    function ObtenerFechaHora: string;
    procedure SetEncabezado(const Texto: string; Linea: Integer; Atributo: Integer = 0);
    function GetEncabezado(Linea: Integer): string;
    procedure CortaPapel;
    procedure AvanzaPapel(Lineas: Integer);
    function ValoresModelo: string;
    function Numeracion: string;
    function AutodetectarModelo: string;

    // Qué fue de la última llamada, y lo que quedó pendiente de una anterior. Un texto vacío es que no hay.
    function Desenlace: Integer;
    function Causa: Integer;
    function CausaTexto: string;
    function Respuesta(Numero: Integer): string;
    function Intentos: Integer;
    procedure Estado;
    function DocumentoAbierto: Integer;
    function Subtotal: string;
    function UltimoNumero(Clase: Integer; Letra: Char = #0): string;  // Kestra_Numeracion
    function Pendiente: string;                                       // la llamada, con sus argumentos
    function Resolver: Integer;
    function ResolverNumero: string;
    function Olvidar: Integer;
  end;

// Un consumidor final sin nombre.
function ConsumidorFinal: TCliente;

// Para ejemplos y pruebas: sin --impresora-real termina el programa (2) si la impresora de ./Fiscal.ini no es virtual.
procedure ExigirImpresoraVirtual;

implementation

uses
  Kestra;

type
  TBytesDeTexto = {$IFDEF UNICODE} RawByteString {$ELSE} AnsiString {$ENDIF};
  TBufer = array[0..1023] of AnsiChar;

const
  // Terminados en cero: UTF-8 donde los textos del lenguaje lo son o se convierten, windows-1252 en Delphi hasta 2007.
  MODO_TEXTOS = {$IFDEF FPC} 2 {$ELSE} {$IFDEF UNICODE} 2 {$ELSE} 1 {$ENDIF} {$ENDIF};

function T(const Texto: string): TBytesDeTexto;
begin
  Result := {$IFDEF UNICODE} UTF8Encode(Texto) {$ELSE} Texto {$ENDIF};
end;

function P(const Texto: TBytesDeTexto): PAnsiChar;
begin
  Result := PAnsiChar(Texto);
end;

function DePuntero(Puntero: PAnsiChar): string;
begin
  Result := {$IFDEF UNICODE} UTF8ToString(Puntero) {$ELSE} Puntero {$ENDIF};
end;

// El texto de un búfer que estaba en cero.
function DeBytes(const Bufer: TBufer): string;
begin
  Result := DePuntero(PAnsiChar(@Bufer[0]));
end;

function Vacio: TBufer;
begin
  FillChar(Result, SizeOf(Result), 0);
end;

function TextoDeCausa: string;
var
  Bufer: TBufer;
begin
  Bufer := Vacio;
  Kestra_CausaTexto(Bufer, SizeOf(Bufer) - 1);
  Result := DeBytes(Bufer);
end;

procedure Hecho(const Llamada: string; Resultado: Integer);
begin
  if Resultado <> 0 then
    raise EErrorFiscal.Create(Llamada);
end;

// -1: no se puede saber ahora.
function Sabido(const Llamada: string; Resultado: Integer): Integer;
begin
  if Resultado = -1 then
    raise EErrorFiscal.Create(Llamada);
  Result := Resultado;
end;

constructor EErrorFiscal.Create(const ALlamada: string);
var
  Oracion: string;
begin
  Oracion := TextoDeCausa;
  if Oracion = '' then
    Oracion := ALlamada + ': falló, ver fiscal.log';
  inherited Create(Oracion);
  Llamada := ALlamada;
  Desenlace := Kestra_Desenlace;
  Causa := Kestra_Causa;
end;

constructor TImpresora.Create;
begin
  inherited Create;
  FTextos := Kestra_Textos(MODO_TEXTOS);
  if EP_Init <> 1 then
    raise EErrorFiscal.Create('EP_Init');
end;

// Lo que levante el operador se muestra: a través de la biblioteca no puede salir.
procedure MostrarFalla(Falla: Exception);
begin
  WriteLn(ErrOutput, 'operador: ', Falla.Message);
end;

function AlMensaje(Contexto: Pointer; Texto: PAnsiChar; Titulo: PAnsiChar; Estilo: Integer): Integer;
  {$IFDEF LINUX} cdecl; {$ELSE} stdcall; {$ENDIF}
begin
  Result := 0;
  try
    Result := TOperador(Contexto).Mensaje(DePuntero(Texto), DePuntero(Titulo), Estilo);
  except
    on Falla: Exception do
      MostrarFalla(Falla);
  end;
end;

function AlInformeEstados(Contexto: Pointer; Impresora: PAnsiChar; Fiscal: PAnsiChar; Filas: PKestraFila;
  Cantidad: Integer): Integer; {$IFDEF LINUX} cdecl; {$ELSE} stdcall; {$ENDIF}
var
  Propias: TFilas;
  I: Integer;
begin
  Result := 0;
  try
    SetLength(Propias, Cantidad);
    for I := 0 to Cantidad - 1 do
    begin
      Propias[I].Grupo := Filas^.grupo;
      Propias[I].Numero := Filas^.numero;
      Propias[I].Clase := Filas^.clase;
      Propias[I].Encendida := Filas^.encendida <> 0;
      Propias[I].Texto := DePuntero(Filas^.texto);
      Propias[I].Ayuda := DePuntero(Filas^.ayuda);
      Inc(Filas);
    end;
    if TOperador(Contexto).InformeEstados(DePuntero(Impresora), DePuntero(Fiscal), Propias) then
      Result := 1;
  except
    on Falla: Exception do
      MostrarFalla(Falla);
  end;
end;

procedure AlMemoriaLlena(Contexto: Pointer); {$IFDEF LINUX} cdecl; {$ELSE} stdcall; {$ENDIF}
begin
  try
    TOperador(Contexto).MemoriaLlena;
  except
    on Falla: Exception do
      MostrarFalla(Falla);
  end;
end;

procedure TImpresora.DefinirOperador(Operador: TOperador);
var
  Registro: TKestraOperador;
begin
  if Operador = nil then
  begin
    Kestra_DefinirOperador(nil);
    Exit;
  end;
  Registro.tamano := SizeOf(Registro);
  Registro.contexto := Operador;
  Registro.mensaje := AlMensaje;
  Registro.informe_estados := AlInformeEstados;
  Registro.memoria_llena := AlMemoriaLlena;
  Kestra_DefinirOperador(@Registro);
end;

destructor TImpresora.Destroy;
begin
  EP_Kill;
  Kestra_DefinirOperador(nil);
  Kestra_Textos(FTextos);
  inherited Destroy;
end;

procedure TImpresora.AbrirComprobanteFiscal(const Tipo, Letra: string; const Cliente: TCliente; Copias: Integer);
begin
  Hecho('EP_AbrirComprobanteFiscal', EP_AbrirComprobanteFiscal(P(T(Tipo)), P(T(Letra)), P(T(Cliente.Nombre)), '',
    P(T(Cliente.DocumentoTipo)), P(T(Cliente.DocumentoNumero)), P(T(Cliente.ResponsabilidadIva)),
    P(T(Cliente.Domicilio1)), P(T(Cliente.Domicilio2)), P(T(Cliente.Domicilio3)), P(T(Cliente.Linea4)),
    P(T(Cliente.Linea5)), Copias));
end;

procedure TImpresora.ImprimirItem(const Descripcion: string; Cantidad, Precio, Iva: Double; const Extra1, Extra2,
  Extra3: string; ImpuestosInternos: Double);
begin
  Hecho('EP_ImprimirItem', EP_ImprimirItem(P(T(Descripcion)), Cantidad, Precio, Iva, ImpuestosInternos, P(T(Extra1)),
    P(T(Extra2)), P(T(Extra3))));
end;

procedure TImpresora.AnularItem(const Descripcion: string; Cantidad, Precio, Iva: Double; const Extra1, Extra2,
  Extra3: string; ImpuestosInternos: Double);
begin
  Hecho('EP_AnularItem', EP_AnularItem(P(T(Descripcion)), Cantidad, Precio, Iva, ImpuestosInternos, P(T(Extra1)),
    P(T(Extra2)), P(T(Extra3))));
end;

procedure TImpresora.ImprimirTextoFiscal(const Texto: string);
begin
  Hecho('EP_ImprimirTextoFiscal', EP_ImprimirTextoFiscal(P(T(Texto))));
end;

function TImpresora.CerrarComprobanteFiscal(const Tipo, Letra: string): string;
var
  Bufer: TBufer;
begin
  Bufer := Vacio;
  Hecho('EP_CerrarComprobanteFiscal', EP_CerrarComprobanteFiscal(P(T(Tipo)), P(T(Letra)), Bufer));
  Result := DeBytes(Bufer);
end;

procedure TImpresora.Cancelar;
begin
  Hecho('EP_Cancelar', EP_Cancelar);
end;

procedure TImpresora.DescuentoGeneral(const Descripcion: string; Monto: Double);
begin
  Hecho('EP_DescuentoGeneral', EP_DescuentoGeneral(P(T(Descripcion)), Monto));
end;

procedure TImpresora.RecargoGeneral(const Descripcion: string; Monto: Double);
begin
  Hecho('EP_RecargoGeneral', EP_RecargoGeneral(P(T(Descripcion)), Monto));
end;

procedure TImpresora.EspecificarPercepcionGlobal(const Descripcion: string; Monto, Iva: Double;
  const Calificador: string);
begin
  Hecho('EP_EspecificarPercepcionGlobal',
    EP_EspecificarPercepcionGlobal(P(T(Descripcion)), Monto, Iva, P(T(Calificador))));
end;

procedure TImpresora.ImprimirPago(const Descripcion: string; Monto: Double);
begin
  Hecho('EP_ImprimirPago', EP_ImprimirPago(P(T(Descripcion)), Monto));
end;

procedure TImpresora.AjusteRedondeo(Total: Double);
begin
  Hecho('EP_AjusteRedondeo', EP_AjusteRedondeo(Total));
end;

procedure TImpresora.AbrirComprobanteNoFiscalHomologado(const Tipo, Marca1, Linea1, Linea2, DocumentoTipo,
  DocumentoNumero, Marca2, Domicilio, Linea4, Linea5, Linea6, Linea7: string; Cantidad: Integer);
begin
  Hecho('EP_AbrirComprobanteNoFiscalHomologado', EP_AbrirComprobanteNoFiscalHomologado(P(T(Tipo)), P(T(Marca1)),
    P(T(Linea1)), P(T(Linea2)), P(T(DocumentoTipo)), P(T(DocumentoNumero)), P(T(Marca2)), P(T(Domicilio)),
    P(T(Linea4)), P(T(Linea5)), P(T(Linea6)), P(T(Linea7)), Cantidad));
end;

procedure TImpresora.CerrarComprobanteNoFiscalHomologado(const Tipo, Marca: string);
begin
  Hecho('EP_CerrarComprobanteNoFiscalHomologado', EP_CerrarComprobanteNoFiscalHomologado(P(T(Tipo)), P(T(Marca))));
end;

procedure TImpresora.AbrirComprobanteNoFiscal;
begin
  Hecho('EP_AbrirComprobanteNoFiscal', EP_AbrirComprobanteNoFiscal);
end;

procedure TImpresora.ImprimirTextoNoFiscal(const Texto: string);
begin
  Hecho('EP_ImprimirTextoNoFiscal', EP_ImprimirTextoNoFiscal(P(T(Texto))));
end;

procedure TImpresora.CerrarComprobanteNoFiscal;
begin
  Hecho('EP_CerrarComprobanteNoFiscal', EP_CerrarComprobanteNoFiscal);
end;

procedure TImpresora.ReporteX;
begin
  Hecho('EP_ReporteX', EP_ReporteX);
end;

procedure TImpresora.ReporteZ;
begin
  Hecho('EP_ReporteZ', EP_ReporteZ);
end;

procedure TImpresora.ReporteZporNumeros(Primero, Ultimo: Integer);
begin
  Hecho('EP_ReporteZporNumeros', EP_ReporteZporNumeros(Primero, Ultimo, 0));
end;

procedure TImpresora.ReporteZporFechas(const Desde, Hasta: string);
begin
  Hecho('EP_ReporteZporFechas', EP_ReporteZporFechas(P(T(Desde)), P(T(Hasta)), 0));
end;

procedure TImpresora.AbrirCajonDeDinero(Cajon: Integer);
begin
  Hecho('EP_AbrirCajonDeDinero', EP_AbrirCajonDeDinero(Cajon));
end;

procedure TImpresora.CambiarFechaHora(const Fecha, Hora: string);
begin
  Hecho('EP_CambiarFechaHora', EP_CambiarFechaHora(P(T(Fecha)), P(T(Hora))));
end;

function TImpresora.ObtenerFechaHora: string;
var
  Bufer: TBufer;
begin
  Bufer := Vacio;
  Hecho('EP_ObtenerFechaHora', EP_ObtenerFechaHora(Bufer));
  Result := DeBytes(Bufer);
end;

procedure TImpresora.SetEncabezado(const Texto: string; Linea: Integer; Atributo: Integer);
begin
  Hecho('EP_SetEncabezado', EP_SetEncabezado(P(T(Texto)), Linea, Atributo));
end;

function TImpresora.GetEncabezado(Linea: Integer): string;
var
  Bufer: TBufer;
begin
  Bufer := Vacio;
  Hecho('EP_GetEncabezado', EP_GetEncabezado(Bufer, Linea));
  Result := DeBytes(Bufer);
end;

procedure TImpresora.CortaPapel;
begin
  Hecho('EP_CortaPapel', EP_CortaPapel);
end;

procedure TImpresora.AvanzaPapel(Lineas: Integer);
begin
  Hecho('EP_AvanzaPapel', EP_AvanzaPapel(Lineas));
end;

function TImpresora.ValoresModelo: string;
var
  Bufer: TBufer;
begin
  Bufer := Vacio;
  Hecho('EP_ValoresModelo', EP_ValoresModelo(Bufer));
  Result := DeBytes(Bufer);
end;

function TImpresora.Numeracion: string;
var
  Bufer: TBufer;
begin
  Bufer := Vacio;
  Hecho('EP_Numeracion', EP_Numeracion(Bufer));
  Result := DeBytes(Bufer);
end;

function TImpresora.AutodetectarModelo: string;
var
  Bufer: TBufer;
begin
  Bufer := Vacio;
  Hecho('EP_AutodetectarModelo', EP_AutodetectarModelo(Bufer));
  Result := DeBytes(Bufer);
end;

function TImpresora.Desenlace: Integer;
begin
  Result := Kestra_Desenlace;
end;

function TImpresora.Causa: Integer;
begin
  Result := Kestra_Causa;
end;

function TImpresora.CausaTexto: string;
begin
  Result := TextoDeCausa;
end;

function TImpresora.Respuesta(Numero: Integer): string;
var
  Bufer: TBufer;
begin
  Bufer := Vacio;
  Sabido('Kestra_Respuesta', Kestra_Respuesta(Numero, Bufer, SizeOf(Bufer) - 1));
  Result := DeBytes(Bufer);
end;

function TImpresora.Intentos: Integer;
begin
  Result := Kestra_Intentos;
end;

procedure TImpresora.Estado;
begin
  Hecho('Kestra_Estado', Kestra_Estado);
end;

function TImpresora.DocumentoAbierto: Integer;
begin
  Result := Sabido('Kestra_DocumentoAbierto', Kestra_DocumentoAbierto);
end;

function TImpresora.Subtotal: string;
var
  Bufer: TBufer;
begin
  Bufer := Vacio;
  Sabido('Kestra_Subtotal', Kestra_Subtotal(Bufer, SizeOf(Bufer) - 1));
  Result := DeBytes(Bufer);
end;

function TImpresora.UltimoNumero(Clase: Integer; Letra: Char): string;
var
  Bufer: TBufer;
begin
  Bufer := Vacio;
  Sabido('Kestra_Numeracion', Kestra_Numeracion(Clase, Ord(Letra), Bufer, SizeOf(Bufer) - 1));
  Result := DeBytes(Bufer);
end;

function TImpresora.Pendiente: string;
var
  Bufer: TBufer;
begin
  Bufer := Vacio;
  Sabido('Kestra_Pendiente', Kestra_Pendiente(Bufer, SizeOf(Bufer) - 1));
  Result := DeBytes(Bufer);
end;

function TImpresora.Resolver: Integer;
begin
  Result := Sabido('Kestra_Resolver', Kestra_Resolver);
end;

function TImpresora.ResolverNumero: string;
var
  Bufer: TBufer;
begin
  Bufer := Vacio;
  Sabido('Kestra_ResolverNumero', Kestra_ResolverNumero(Bufer, SizeOf(Bufer) - 1));
  Result := DeBytes(Bufer);
end;

function TImpresora.Olvidar: Integer;
begin
  Result := Sabido('Kestra_Olvidar', Kestra_Olvidar);
end;

function ConsumidorFinal: TCliente;
begin
  Finalize(Result);
  FillChar(Result, SizeOf(Result), 0);
  Result.ResponsabilidadIva := 'F';
end;

{$IFDEF LINUX}
function realpath(Ruta, Real: PAnsiChar): PAnsiChar; cdecl; external 'c' name 'realpath';
{$ENDIF}

function SonDigitos(const Texto: string): Boolean;
var
  I: Integer;
begin
  Result := Texto <> '';
  for I := 1 to Length(Texto) do
    if (Texto[I] < '0') or (Texto[I] > '9') then
      Result := False;
end;

// Si es una dirección de esta máquina, un pipe con nombre o una pseudoterminal.
function EsVirtual(const Dispositivo: string): Boolean;
var
  I: Integer;
  Equipo: string;
{$IFDEF LINUX}
  Real: array[0..4095] of AnsiChar;
{$ENDIF}
begin
  Result := Copy(Dispositivo, 1, 9) = '\\.\pipe\';
  if Copy(Dispositivo, 1, 4) = 'tcp:' then
  begin
    I := Length(Dispositivo);
    while Dispositivo[I] <> ':' do
      Dec(I);
    Equipo := Copy(Dispositivo, 5, I - 5);
    Result := SonDigitos(Copy(Dispositivo, I + 1, MaxInt)) and ((Equipo = 'localhost') or (Equipo = '::1') or
      (Equipo = '[::1]') or ((Copy(Equipo, 1, 4) = '127.') and SonDigitos(StringReplace(Equipo, '.', '', [rfReplaceAll]))));
  end;
{$IFDEF LINUX}
  if realpath(PAnsiChar(T(Dispositivo)), Real) <> nil then
    Result := (Copy(string(Real), 1, 9) = '/dev/pts/') and SonDigitos(Copy(string(Real), 10, MaxInt));
{$ENDIF}
end;

procedure ExigirImpresoraVirtual;
var
  Ini: TextFile;
  Linea, Clave: string;
  I: Integer;
  Alguna, Todas: Boolean;
begin
  if FindCmdLineSwitch('-impresora-real', ['-'], False) then
    Exit;
  Alguna := False;
  Todas := True;
  if FileExists('Fiscal.ini') then
  begin
    AssignFile(Ini, 'Fiscal.ini');
    Reset(Ini);
    while not Eof(Ini) do
    begin
      ReadLn(Ini, Linea);
      I := Pos('=', Linea);
      Clave := Trim(Copy(Linea, 1, I - 1));
      if SameText(Clave, 'ImpresoraDispositivo') then
      begin
        Alguna := True;
        Todas := Todas and EsVirtual(Trim(Copy(Linea, I + 1, MaxInt)));
      end;
    end;
    CloseFile(Ini);
  end;
  // La variable KESTRA_DISPOSITIVO se antepone a Fiscal.ini: con ella no.
  if Alguna and Todas and (GetEnvironmentVariable('KESTRA_DISPOSITIVO') = '') then
    Exit;
  WriteLn(ErrOutput, 'La impresora de Fiscal.ini no es virtual: para usarla igual, --impresora-real.');
  Halt(2);
end;

end.
